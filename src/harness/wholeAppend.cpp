#include "harness/wholeAppend.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace quintline {

bool appendWhole(int fd, std::string_view text) {
    struct stat before {};
    if (fstat(fd, &before) != 0) return false;
    // Normally one write takes the whole stretch; a short count (a limit
    // reached partway) is followed by one more that reports why.
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
        if (n > 0) {
            done += static_cast<std::size_t>(n);
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        const int failure = n < 0 ? errno : ENOSPC;
        while (ftruncate(fd, before.st_size) != 0 && errno == EINTR) {
        }
        errno = failure;
        return false;
    }
    return true;
}

}  // namespace quintline
