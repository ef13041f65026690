// varnholt_fuzz INPUTS SEED: see Fuzz.h. Built for long runs under the sanitizers.

#include <wx/init.h>
#include <wx/log.h>

#include <cstdio>
#include <cstdlib>

#include "fuzz/Fuzz.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: varnholt_fuzz INPUTS SEED\n");
        return 2;
    }
    const wxInitializer wx;
    const wxLogNull quiet;
    const std::string broken =
        RunFuzz(std::strtoull(argv[1], nullptr, 10), std::strtoull(argv[2], nullptr, 10));
    if (!broken.empty()) std::fprintf(stderr, "%s\n", broken.c_str());
    return broken.empty() ? 0 : 1;
}
