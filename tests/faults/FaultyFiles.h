#pragma once

#include <cerrno>
#include <string>

/// Lets file operations fail on purpose. The library behind this takes the place of the system's
/// functions in the test program.
namespace test {

/// From now on the n-th opening, writing, flushing, cutting, closing, renaming or giving of rights
/// to a file, or making of a folder, below a folder fails, once or for good; 0 for none. Counts
/// from 1. Reading fails only when `reading` is set, in place of all that.
void injectFault(const char* folder, int n, bool forGood, int error = ENOSPC, bool reading = false);

/// What happens to files and folders below a folder from now on, until takeFault(): "open",
/// "write", "flush", "close", "rename" and so on, with a blank behind each; of a folder only "flush
/// folder".
void recordOperations(const char* folder);
std::string takeOperations();

/// From now on every writing below that folder takes a few bytes only, or is interrupted first.
void writeInPieces();

/// No file can be made in a folder.
void closeFolder(const char* folder);

/// What keeps a list of rights from going over to the new file: "getxattr", "fsetxattr" or
/// "fremovexattr" fails; otherwise files in a folder have a list when one is to be copied.
void failToCopyRights(const char* folder, const char* call);

/// No thread can be started.
void refuseThreads();

/// Ends that; true when a fault has happened.
bool takeFault();

} // namespace test
