#pragma once

#include <platform/file.h>

namespace kv {

/// What an open does with its file, and what it forbids all others meanwhile.
enum FileClaim : unsigned int { kReads = 1, kWrites = 2, kBarsReaders = 4, kBarsWriters = 8 };

/// Enters an open with its FileClaim bits: kReads where the descriptor may read, kWrites where it
/// may write, and what is barred. The share names device, inode and descriptor and must be outside
/// the table. False, and still outside, when a claim meets the bar of another open or bars what
/// another open does, in this process or, as far as the file system has locks, in another one.
bool EnterShare(FileShare& share, unsigned int claims);

/// Gives the place up, if there is one. Comes before the descriptor is closed.
void LeaveShare(FileShare& share);

}  // namespace kv
