#include "harness/testSuiteList.h"

namespace quintline {

bool TestSuiteList::open(const std::filesystem::path& file, std::string& fault) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(file, ignored)) in_.open(file, std::ios::binary);
    if (!in_.is_open()) {
        fault = file.string() + " can not be opened";
        return false;
    }
    const NumberField n = fields_.readNumber();
    switch (n.fault) {
        case FieldFault::none:
            count_ = n.value;
            return true;
        case FieldFault::endOfFile:
            fault = file.string() + " is empty";
            break;
        case FieldFault::notANumber:
            fault = file.string() + " does not begin with the number of entries";
            break;
        case FieldFault::outOfRange:
            fault = file.string() + ": the number of entries does not fit 16 bits";
            break;
    }
    return false;
}

std::optional<std::string> TestSuiteList::nextEntry() {
    if (given_ >= count_) return std::nullopt;
    TextField path = fields_.readText();
    if (path.fault != FieldFault::none) {
        given_ = count_;  // the list ended early: nothing more will come
        return std::nullopt;
    }
    ++given_;
    return std::move(path.value);
}

}  // namespace quintline
