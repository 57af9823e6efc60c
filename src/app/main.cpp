#include <cstdio>

int main() {
    std::puts("VARNOK LEVEL EDITOR: the window is not built yet.");
    return 0;
}
