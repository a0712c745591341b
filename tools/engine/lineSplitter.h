#pragma once
// Cuts a byte stream into lines ended by CR LF, LF or CR; empty lines are
// dropped, so CR LF counts as one end.

#include <string>
#include <string_view>

namespace quintline::engine {

class LineSplitter {
  public:
    // Calls onLine for every line completed by `bytes`; keeps the unfinished rest.
    template <typename OnLine>
    void feed(std::string_view bytes, OnLine&& onLine) {
        for (const char c : bytes) {
            if (c != '\r' && c != '\n') {
                partial_ += c;
            } else if (!partial_.empty()) {
                onLine(std::string_view(partial_));
                partial_.clear();
            }
        }
    }

  private:
    std::string partial_;
};

}  // namespace quintline::engine
