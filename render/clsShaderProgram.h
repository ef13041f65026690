#pragma once

#include <wx/string.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

/// One GLSL program, built from source files of the folder GL. Lives in the group of contexts it was built in
/// and ends with it.
/// Threads: the thread of the context.
/// Failure: a source that cannot be read or compiled gives null after a message; one that compiles but cannot
/// be linked ends the program, as it always did.
class ShaderProgram_cls {
  public:
    struct Stage {
        std::vector<const char*> files;  ///< below GL, joined in this order
    };
    struct Input {
        unsigned int location;
        const char* name;
    };
    /// What a program is made of. An empty stage means the fixed-function one.
    struct Recipe {
        std::string preamble;  ///< before both stages: version and definitions
        Stage vertex;
        Stage fragment;
        std::vector<Input> inputs;
        /// Names of a first and second colour output; null for the one that GLSL has by itself.
        const char* firstOutput = nullptr;
        const char* secondOutput = nullptr;
    };

    /// With `verbose` what fails is shown to the user, else it is printed on standard error.
    static std::unique_ptr<ShaderProgram_cls> Build(const Recipe& recipe, bool verbose);

    void Use() const;
    /// -1, which setting ignores, for a uniform that the sources do not use.
    int GetUniform(const char* name);

  private:
    explicit ShaderProgram_cls(unsigned int name) : mName(name) {}

    const unsigned int mName;
    std::map<std::string, int, std::less<>> mUniforms;
};
