#pragma once
// Jobs and their played games as bytes, for the ranks of an MPI run. Both
// ends are the same program, so the layout is the machine's own.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/batchRun.h"

namespace quintline::batch {

std::string encodeJob(std::size_t index, const BatchJob& job);
std::pair<std::size_t, BatchJob> decodeJob(std::string_view bytes);

std::string encodeGames(std::size_t index, const std::vector<PlayedGame>& games);
std::pair<std::size_t, std::vector<PlayedGame>> decodeGames(std::string_view bytes);

}  // namespace quintline::batch
