#pragma once

#include <string>

#include "logger/writer/LogWriter.h"

// A writer that notes each call in a journal that the test keeps, and writes one letter, or as many as told, an entry.
class JournalWriter : public LogWriter {
public:
    explicit JournalWriter(std::string& journal, unsigned int bytesPerEntry = 1)
        : journal_(journal), bytesPerEntry_(bytesPerEntry) {}
    ~JournalWriter() override { journal_ += "deleted "; }

    unsigned int writeHeader() override {
        journal_ += "header ";
        put('<', 1);
        return 1;
    }
    unsigned int write(const LogEntry*, const Unit* unit) override {
        journal_ += unit == nullptr ? "entry " : std::string("entry in ") + unit->getName() + " ";
        put('.', bytesPerEntry_);
        return bytesPerEntry_;
    }
    void endCycle() override { journal_ += "endCycle "; }
    unsigned int writeFooter() override {
        journal_ += "footer ";
        put('>', 1);
        return 1;
    }
    void config(Logger&) override { journal_ += "config "; }
    void resetInputs() override { journal_ += "resetInputs "; }

private:
    void put(char c, unsigned int count) {
        const std::string text(count, c);
        if (isValid()) logStream_->write(text.data(), text.size());
    }

    std::string& journal_;  // borrowed
    const unsigned int bytesPerEntry_;
};
