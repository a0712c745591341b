#pragma once
// Appending a stretch of text so that a reader never sees part of it: after
// appendWhole the file holds either all of the text at its end or exactly
// what it held before.

#include <string_view>

namespace quintline {

// Appends text to the open file fd (opened with O_APPEND). On any failure
// (disk full, quota, file-size limit, I/O error) the file is cut back to its
// size before the call and false is returned with errno from the failure.
// Writes interrupted by a signal are resumed.
bool appendWhole(int fd, std::string_view text);

}  // namespace quintline
