#include "support/Program.h"

#include <sys/wait.h>

#include <cstdlib>

#include "support/TempFolder.h"

namespace {

std::string Quote(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

ProgramRun_cls RunProgram(const std::vector<std::string>& arguments, const std::string& folder,
                          const std::vector<std::string>& environment) {
    const TempFolder_cls output;
    std::string command = "cd " + Quote(folder) + " && exec env -u DISPLAY";
    for (const std::string& word : environment) command += " " + Quote(word);
    command += " " VARNHOLT_PROGRAM;
    for (const std::string& argument : arguments) command += " " + Quote(argument);
    command += " >" + output.File("out") + " 2>" + output.File("err") + " </dev/null";

    const int result = std::system(command.c_str());
    return {WIFEXITED(result) ? WEXITSTATUS(result) : 128 + WTERMSIG(result),
            ReadWholeFile(output.File("out")), ReadWholeFile(output.File("err"))};
}
