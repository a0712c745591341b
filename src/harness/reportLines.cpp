#include "harness/reportLines.h"

#include <fcntl.h>
#include <unistd.h>

#include "boardfile/numberForm.h"
#include "harness/wholeAppend.h"

namespace quintline {
namespace {

// Every line begins with a path, which a list entry or the file dialog gave:
// a line end or NUL in it would break the report's lines, so they show as '?'.
std::string line(std::string_view path, std::string_view rest) {
    std::string out(path);
    for (char& c : out)
        if (c == '\r' || c == '\n' || c == '\0') c = '?';
    out += rest;
    out += lineEnd;
    return out;
}

}  // namespace

std::string startLine(std::string_view boardFilePath, std::string_view timeOfDay) {
    return line(boardFilePath, "start Time: " + std::string(timeOfDay));
}

std::string headerLine(std::string_view boardFilePath, std::string_view header) {
    return line(boardFilePath, header);
}

std::string resultGroupText(const ResultGroup& group) {
    return group.letter + numberForm(group.stones);
}

std::string gameLine(std::string_view boardFilePath, const CycleResults& results) {
    std::string groups = " ";
    for (const ResultGroup& group : results) groups += resultGroupText(group);
    return line(boardFilePath, groups);
}

std::string summaryLine(const CreditCounts& counts) {
    std::string numbers;
    for (std::size_t n = 0; n < counts.size(); ++n) {
        if (n > 0) numbers += ',';
        numbers += numberForm(counts[n]);
    }
    return line({}, numbers);
}

std::string endLine(std::string_view boardFilePath, std::string_view timeOfDay) {
    return line(boardFilePath, "End Time: " + std::string(timeOfDay));
}

std::string usedLine(std::string_view boardFilePath, float seconds) {
    return line(boardFilePath, "Used Time (second): " + numberForm(seconds));
}

bool appendToFile(const std::filesystem::path& file, std::string_view bytes) {
    const int fd = ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) return false;
    const bool written = appendWhole(fd, bytes);
    return ::close(fd) == 0 && written;
}

}  // namespace quintline
