#pragma once

#include <cstdio>
#include <memory>

#include "data/ElementURI.h"
#include "logger/writer/RequestedVariables.h"
#include "logger/writer/SlateWatch.h"

class DataAccess;

// The variables that an output is asked for, and where each is found among the log's codes. Names become known only as
// the log's directory is read, so they are resolved again whenever it has grown.
class VariableSelection {
public:
    explicit VariableSelection(const RequestedVariables& requested, const Log& log = Log::Current());  // log: borrowed

    void reset();  // forget all codes and units; look everything up again
    // Looks up what is not resolved yet, when the directory has changed since the last try. True when every name is
    // resolved or, the directory having been read, can no longer be.
    bool resolve() { return resolved_ || (watch_.hasChanged() && lookUpAll()); }

    int count() const { return requested_.count(); }
    const char* name(int index) const { return requested_.at(index).name_; }       // as asked for
    const char* unitName(int index) const { return requested_.at(index).unit_; }   // null when none was asked for
    float error(int index) const { return requested_.at(index).error_; }           // NaN when none was given
    unsigned short code(int index) const { return variables_[index].code_; }       // ElementURI::NO_CODE until found
    bool isFound(int index) const { return code(index) < ElementURI::NUM_CODES; }  // the log has named it
    bool isUniversal(int index) const { return variables_[index].isUniversal_; }   // false until found
    const Unit* unit(int index) const { return variables_[index].unit_; }          // the unit asked for; null when none
    // The index of the variable with that code (the last of equal names), -1 when none was asked for.
    int indexOf(unsigned short code) const { return code < ElementURI::NUM_CODES ? codeLookup_[code] : -1; }
    // A later name of the list has the same code: indexOf gives that one.
    bool isListedAgain(int index) const { return isFound(index) && codeLookup_[code(index)] != index; }
    // The index at which the same variable is listed before, -1 when it is not.
    int indexBefore(int index) const { return variables_[index].indexBefore_; }
    // The first index of the same name.
    int firstIndexOfName(int index) const { return indexOfName(name(index)); }
    int indexOfName(const char* text) const;  // the first one; -1 when it was not asked for
    // The access that describes the variable; null while there is none.
    const DataAccess* access(int index) const;
    const Unit* unitOfName(int index) const;  // the first asked for with that name; null when none was
    // The unit in which it is written: the one asked for, else that of the log.
    const Unit& unitOf(int index, const DataAccess& access) const;
    // The unit in which the variable is shown: the one asked for, else that of the log. Null while nothing tells what
    // the variable is: an access without a type holds no value, and of a name that the log does not know only a unit
    // tells.
    const Unit* shownUnit(int index) const;
    // The standard name of a universal, or of a variable that serves the universal of that code; null when there is
    // none. SELF_CODE: it serves itself, which gives a name to universals alone.
    const ElementURI* standardName(int index, unsigned short universalCode) const;
    // Says on standard output why an output holds nothing; hasPlace(index) tells whether it has one for the variable.
    template <typename HasPlace>
    void printMissing(HasPlace hasPlace) const {
        printThose("Could not find variable", [this](int i) { return !isFound(i); });
        if (resolved_) printThose("Never ran writer for variable", [&](int i) { return !hasPlace(i); });
    }

private:
    struct Variable {
        unsigned short code_ = ElementURI::NO_CODE;
        bool isUniversal_ = false;
        const Unit* unit_ = nullptr;
        int indexBefore_ = -1;
    };
    // A line each, and one for those that would be too many: an output may have been asked for all of a log's.
    template <typename IsMeant>
    void printThose(const char* text, IsMeant isMeant) const {
        static const int MAX_SHOWN = 20;
        int meant = 0;
        for (int i = 0; i < count(); ++i) {
            if (isMeant(i) && ++meant <= MAX_SHOWN) printf("%s \"%s\"\n", text, name(i));
        }
        if (meant > MAX_SHOWN) printf("%s: %d more\n", text, meant - MAX_SHOWN);
    }
    bool lookUpAll();
    bool lookUpCode(int index);  // true when the log knows the name
    void lookUpUnit(int index);

    const Log& log_;
    const RequestedVariables requested_;
    std::unique_ptr<Variable[]> variables_;
    std::unique_ptr<int[]> codeLookup_;  // by code, NUM_CODES of them: the index or -1
    bool resolved_ = false;
    SlateWatch watch_{log_};
};
