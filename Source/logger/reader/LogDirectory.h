#pragma once

#include "data/Log.h"

class LogWriter;

// The directory of a log as a whole: read from its files, or written to others.
class LogDirectory {
public:
    explicit LogDirectory(Log& log = Log::Current()) : log_(log) {}  // borrowed

    // Reads the directory records of the log or side file at path (its numbered parts included) and registers them.
    // Values are passed over. A directory counts as read when at least one record was registered. The version in force
    // is then the one that the log begins with, if it tells one. Messages about the file need not be shown: a log that
    // is read again later shows them then.
    void read(const Str& path, bool showMessages = true);
    // Reads the side file of a log, which is the log's name with ".dir", unless what the log itself says before its
    // first other entry contradicts it: then nothing stays registered, the version in force is as before, and one
    // message names both files. Where the log begins with its version, the side file's does not rule.
    void readSideFile(const Str& name, bool showMessages = true);

    // Gives every item without a code the next one and writes the whole directory to the writer; with a null writer
    // only the entries of items that have just been given a code, to the log's sink.
    void write(LogWriter* writer);
    // One entry, to the writer or else to the sink.
    template <typename Item>
    void writeEntry(Item& item, LogWriter* writer);

private:
    class Scanner;
    class ToldVersions;

    ToldVersions scan(const Str& path, bool showMessages);
    ToldVersions readHead(const Str& name);
    template <typename Item>
    void writeItems(const FlexArray<Item*>& items, LogWriter* writer);

    Log& log_;
};
