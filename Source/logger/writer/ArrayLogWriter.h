#pragma once

#include <memory>

#include "logger/writer/FilterLogWriter.h"
#include "logger/writer/PaddingLimit.h"
#include "logger/writer/SlateWatch.h"

// The samples of the selected variables and settings, none of them resampled: every name has a place of its own in the
// output, which is made once the log tells what the variable is. What a place is, and how a sample is put there, is
// left to derived writers. A request is a place in the list of the variables and, behind them, the settings. Requests
// of one name share the place of the first of them; a setting that is also a variable is written as that.
class ArrayLogWriter : public FilterLogWriter {
public:
    // In which places are made. By length a name that is the beginning of another has its place before that one, whose
    // part then stands beside what the place holds.
    enum Order : int { AS_LISTED, SHORTEST_FIRST };

    ArrayLogWriter(Order order, const RequestedVariables& variables, const RequestedVariables& settings);

    // Each puts one sample into its place; the result is addSample's, 0 where there is no entry.
    unsigned int writeData(const DataEntry* entry, int varIndex, const Unit* unit) override;
    unsigned int writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) override;
    void resetInputs() override;  // what has a place keeps it: the next input goes on where this one ends

protected:
    // Makes places when the directory has changed since the last try. True when it tried and no request is open any
    // more.
    bool placeRequests();
    // Makes the place of a request, the first of its name, unless it has it. True when nothing that the log may still
    // bring can change the result.
    virtual bool place(int request) = 0;
    // Puts a sample into the place of a request, the first of its name, if it has one; the result is writeData's.
    virtual unsigned int addSample(const DataEntry& entry, int request) = 0;

    int requestCount() const { return variables_.count() + attributes_.count(); }
    const VariableSelection& selectionOf(int request) const { return isAttribute(request) ? attributes_ : variables_; }
    int positionOf(int request) const { return isAttribute(request) ? request - variables_.count() : request; }
    const char* nameOf(int request) const { return selectionOf(request).name(positionOf(request)); }
    // The request whose place it shares; -1: none, for a setting that is written as a variable.
    int ownerOf(int request) const { return owners_[request]; }

    PaddingLimit padding_;

private:
    bool isAttribute(int request) const { return request >= variables_.count(); }
    int findOwner(int request) const;

    const std::unique_ptr<int[]> owners_;  // per request
    const std::unique_ptr<int[]> order_;   // the requests, as their places are made
    SlateWatch watch_{log_};               // of the last try to make them
};
