#pragma once

// Makes way for a new file: removes the file or link at the path, but leaves a device, a pipe or a directory alone.
// That it could not be removed is left to the opening of the new file to show.
void RemoveOldFile(const char* path);
// There is something at the path that is no file, and no directory either.
bool IsDevice(const char* path);
