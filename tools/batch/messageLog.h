#pragma once
// Lines of text from several threads to one stream, each line whole.

#include <mutex>
#include <ostream>
#include <string_view>

namespace quintline::batch {

class MessageLog {
  public:
    // A terminal showing a progress line gets each message on a cleared line.
    explicit MessageLog(std::ostream& out, bool overProgress = false)
        : out_(out), overProgress_(overProgress) {}

    void line(std::string_view text) {
        std::lock_guard lock(mutex_);
        if (overProgress_) out_ << "\r\x1b[K";
        out_ << text << '\n';
        out_.flush();
    }

  private:
    std::mutex mutex_;
    std::ostream& out_;
    bool overProgress_;
};

}  // namespace quintline::batch
