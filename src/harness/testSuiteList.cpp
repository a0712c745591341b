#include "harness/testSuiteList.h"

namespace quintline {
namespace {

std::string tooLarge(const std::filesystem::path& file) {
    return file.string() + " is larger than " + std::to_string(maxTestSuiteListBytes >> 20) +
           " MiB";
}

}  // namespace

bool TestSuiteList::open(const std::filesystem::path& file, std::string& fault) {
    file_ = file;
    std::error_code error;
    if (!std::filesystem::is_directory(file, error)) in_.open(file, std::ios::binary);
    if (!in_.is_open()) {
        fault = file.string() + " can not be opened";
        return false;
    }
    if (std::filesystem::is_regular_file(file, error) &&
        std::filesystem::file_size(file, error) > maxTestSuiteListBytes) {
        fault = tooLarge(file);
        return false;
    }
    const NumberField n = fields_.readNumber();
    switch (n.fault) {
        case FieldFault::none:
            if (n.value >= 0) {
                count_ = n.value;
                return true;
            }
            [[fallthrough]];
        case FieldFault::outOfRange:
            fault = file.string() + ": the number of entries " + fieldExcerpt(n.text) +
                    " is outside 0 to 32767";
            break;
        case FieldFault::endOfFile:
            fault = file.string() + " is empty";
            break;
        case FieldFault::overLimit:
            fault = tooLarge(file);
            break;
        default:
            fault = file.string() + " does not begin with the number of entries";
            break;
    }
    return false;
}

std::optional<ListEntry> TestSuiteList::nextEntry() {
    if (given_ >= count_) return std::nullopt;
    TextField path = fields_.readText();
    if (path.fault == FieldFault::endOfFile || path.fault == FieldFault::overLimit) {
        endEarly(path.fault == FieldFault::overLimit ? tooLarge(file_) + ": the rest is not read"
                                                     : file_.string() + " ends early");
        return std::nullopt;
    }
    ++given_;
    ListEntry entry{std::move(path.value), {}};
    if (path.fault == FieldFault::tooLong)
        entry.refusal = "its path " + fieldExcerpt(entry.path) + " is longer than " +
                        std::to_string(maxFieldLength) + " bytes";
    else if (entry.path.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos)
        entry.refusal = "its path " + fieldExcerpt(entry.path) + " holds a line end or NUL";
    else if (path.fault == FieldFault::unclosedQuote)
        entry.refusal = "its path " + fieldExcerpt(entry.path) + " lacks its closing quote";
    // The quote took the rest of the file.
    if (path.fault == FieldFault::unclosedQuote && given_ < count_)
        endEarly(file_.string() + " ends in an open quote");
    return entry;
}

void TestSuiteList::endEarly(std::string_view why) {
    const int missing = count_ - given_;
    shortfall_ = std::string(why) + ": " + std::to_string(missing) + " of " +
                 std::to_string(count_) + " entries missing";
    given_ = count_;  // nothing more will come
}

}  // namespace quintline
