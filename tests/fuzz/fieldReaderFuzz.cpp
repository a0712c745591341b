// Fields read from any bytes under any byte limit: every read ends, takes no
// more than the limit, keeps at most maxFieldLength bytes, and moves on.

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <tuple>

#include "boardfile/fieldReader.h"

using namespace quintline;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    // The first byte sets the limit, the second which fields are asked for.
    const std::size_t limit = data[0] == 255 ? SIZE_MAX : data[0] * std::size_t{16};
    const unsigned kinds = data[1];
    std::istringstream in(std::string(reinterpret_cast<const char*>(data) + 2, size - 2));
    FieldReader reader(in, limit);
    for (unsigned n = 0;; ++n) {
        const std::size_t before = reader.consumed();
        FieldFault fault;
        std::string text;
        if (kinds >> (n % 8) & 1) {
            NumberField field = reader.readNumber();
            std::tie(fault, text) = std::tuple(field.fault, field.text);
        } else {
            TextField field = reader.readText();
            std::tie(fault, text) = std::tuple(field.fault, field.value);
        }
        const std::string excerpt = fieldExcerpt(text);
        if (reader.consumed() > limit || text.size() > maxFieldLength ||
            excerpt.size() > 2 + 40 * 4 + 3 || excerpt.find_first_of("\r\n") != std::string::npos)
            std::abort();
        if (fault == FieldFault::endOfFile || fault == FieldFault::overLimit) break;
        if (reader.consumed() == before) std::abort();  // a read that takes nothing never ends
    }
    return 0;
}
