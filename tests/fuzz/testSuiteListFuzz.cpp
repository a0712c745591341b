// Test-suite lists from any bytes: a list is refused or gives at most N
// entries; an entry that may be played has a path without line ends that a
// field can hold; a list that gives fewer than N says how many are missing.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "harness/testSuiteList.h"

using namespace quintline;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int fd = memfd_create("testsuit", MFD_CLOEXEC);
    if (fd < 0 || write(fd, data, size) != static_cast<ssize_t>(size)) std::abort();
    TestSuiteList list;
    std::string fault;
    if (list.open("/proc/self/fd/" + std::to_string(fd), fault)) {
        int given = 0;
        while (const std::optional<ListEntry> entry = list.nextEntry()) {
            ++given;
            if (entry->refusal.empty() &&
                (entry->path.size() > maxFieldLength ||
                 entry->path.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos))
                std::abort();
        }
        if (given > list.count() || list.count() < 0 ||
            (given < list.count()) == list.shortfall().empty())
            std::abort();
    } else if (fault.find_first_of("\r\n") != std::string::npos) {
        std::abort();
    }
    close(fd);
    return 0;
}
