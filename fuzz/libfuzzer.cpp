// The entry of a libFuzzer program: the one target linked with it.
#include "bersaglio.h"

#include <cstdio>
#include <cstdlib>

namespace tavolet::fuzz {

void Fallisci(const std::string& perche) {
    std::fprintf(stderr, "PROPRIETA VIOLATA: %s\n", perche.c_str());
    std::abort();
}

} // namespace tavolet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    tavolet::fuzz::Bersagli().front().corpo(dati, n);
    return 0;
}
