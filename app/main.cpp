#include <cstdio>

int main() {
    std::puts(
        "Quintline: the desktop window is not built yet; run ./scripts/test.sh for the engine.");
    return 0;
}
