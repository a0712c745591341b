#pragma once
// Lines of text from several threads to one stream, each line whole.

#include <mutex>
#include <ostream>
#include <string_view>

namespace quintline::batch {

class MessageLog {
  public:
    explicit MessageLog(std::ostream& out) : out_(out) {}

    void line(std::string_view text) {
        std::lock_guard lock(mutex_);
        out_ << text << '\n';
        out_.flush();
    }

  private:
    std::mutex mutex_;
    std::ostream& out_;
};

}  // namespace quintline::batch
