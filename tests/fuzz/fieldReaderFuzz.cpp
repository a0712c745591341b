// Fields from any bytes under any byte limit: every read takes something until
// the input or the limit ends, no read passes the limit, and a field and its
// excerpt for messages stay within their sizes and on one line.

#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "boardfile/fieldReader.h"

using namespace quintline;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    // The first byte sets the limit, the bits of the second which fields are asked for.
    const std::size_t limit = data[0] == 255 ? SIZE_MAX : data[0] * std::size_t{16};
    std::istringstream in(std::string(reinterpret_cast<const char*>(data) + 2, size - 2));
    FieldReader reader(in, limit);
    for (unsigned n = 0;; ++n) {
        const std::size_t before = reader.consumed();
        const bool number = data[1] >> n % 8 & 1;
        const NumberField asNumber = number ? reader.readNumber() : NumberField{};
        const TextField asText = number ? TextField{} : reader.readText();
        const FieldFault fault = number ? asNumber.fault : asText.fault;
        const std::string& text = number ? asNumber.text : asText.value;
        if (reader.consumed() > limit || text.size() > maxFieldLength ||
            fieldExcerpt(text).size() > 165 || fieldExcerpt(text).find_first_of("\r\n") != -1ul)
            std::abort();
        if (fault == FieldFault::endOfFile || fault == FieldFault::overLimit) return 0;
        if (reader.consumed() == before) std::abort();  // it would never end
    }
}
