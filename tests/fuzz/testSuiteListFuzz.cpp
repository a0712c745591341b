// Test-suite lists from any bytes: refused on one line, or at most N entries,
// each playable one's path on one line and no longer than a field, and a
// shortfall named exactly when fewer than N come.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

#include "harness/testSuiteList.h"

using namespace quintline;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int fd = memfd_create("testsuit", MFD_CLOEXEC);
    if (fd < 0 || write(fd, data, size) != static_cast<ssize_t>(size)) std::abort();
    TestSuiteList list;
    std::string fault;
    bool broken = false;
    if (list.open("/proc/self/fd/" + std::to_string(fd), fault)) {
        int given = 0;
        for (; const std::optional<ListEntry> entry = list.nextEntry(); ++given)
            broken =
                broken ||
                (entry->refusal.empty() &&
                 (entry->path.size() > maxFieldLength ||
                  entry->path.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos));
        broken = broken || given > list.count() || list.count() < 0 ||
                 (given < list.count()) == list.shortfall().empty();
    } else {
        broken = fault.find_first_of("\r\n") != std::string::npos;
    }
    close(fd);
    if (broken) std::abort();
    return 0;
}
