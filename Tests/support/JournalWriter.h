#pragma once

#include <string>

#include "logger/engine/LogWriter.h"

// A writer that notes each call, after its name, in a journal that the test keeps, and writes one letter, or as many as
// told, an entry.
class JournalWriter : public LogWriter {
public:
    explicit JournalWriter(std::string& journal, unsigned int bytesPerEntry = 1, const std::string& name = "")
        : journal_(journal), bytesPerEntry_(bytesPerEntry), name_(name) {}
    ~JournalWriter() override { note("deleted"); }

    unsigned int writeHeader() override {
        note("header");
        put('<', 1);
        return 1;
    }
    unsigned int write(const LogEntry*, const Unit* unit) override {
        note(unit == nullptr ? "entry" : std::string("entry in ") + unit->getName());
        put('.', bytesPerEntry_);
        return bytesPerEntry_;
    }
    void endCycle() override { note("endCycle"); }
    unsigned int writeFooter() override {
        note("footer");
        put('>', 1);
        return 1;
    }
    void config(Logger&) override { note("config"); }
    void resetInputs() override { note("resetInputs"); }

private:
    void note(const std::string& what) { journal_ += name_ + what + " "; }
    void put(char c, unsigned int count) {
        const std::string text(count, c);
        if (isValid()) logStream_->write(text.data(), text.size());
    }

    std::string& journal_;  // borrowed
    const unsigned int bytesPerEntry_;
    const std::string name_;
};
