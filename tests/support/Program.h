#pragma once

#include <string>
#include <vector>

/// What a run of the program left.
struct ProgramRun_cls {
    int status = -1;
    std::string out;
    std::string err;
};

/// Runs the built varnholt3 with these arguments in a folder, without a display. `environment` holds
/// NAME=VALUE words for this run.
ProgramRun_cls RunProgram(const std::vector<std::string>& arguments, const std::string& folder = "/",
                          const std::vector<std::string>& environment = {});
