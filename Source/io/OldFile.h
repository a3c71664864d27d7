#pragma once

// Makes way for a new file: removes the file or link at the path, but leaves what is written through, and a directory,
// alone. True when something went.
bool RemoveOldFile(const char* path);
// What stands at the path is no file to be replaced, renamed or packed, but takes what is written to it: a device, a
// pipe, a socket, a file that a process holds open under a name of the system ("/dev/stdout"), or a link to one of
// these.
bool IsWrittenThrough(const char* path);
// It is a pipe.
bool IsPipe(const char* path);
