#pragma once
// The life of a rank other than 0 in an MPI run: it plays the jobs rank 0
// hands out on the threads rank 0 names, sends back the games, and ends when
// rank 0 says so. It reads and writes no file.

#include <atomic>

#include "players/searchSet.h"

namespace quintline::batch {

// Returns the status rank 0 ended with. `stop` is this process's stop signal,
// passed on to rank 0, which stops the whole run.
int serveRankZero(const SearchSet& searches, const std::atomic<bool>& stop);

}  // namespace quintline::batch
