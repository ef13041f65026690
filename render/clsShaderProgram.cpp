#include "render/clsShaderProgram.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "render/clsOpenGL.h"
#include "seam/clsInputFile.h"
#include "seam/clsResourcePath.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

/// No shader source is longer; a file that is will not be read.
constexpr uint64_t kLongestSource = 1 << 20;

std::optional<std::string> ReadSource(const char* file) {
    const wxString path = ResourcePath_cls::Find(wxString("GL/") + file);
    const auto input = InputFile_cls::Open(path);
    if (!input) {
        std::fprintf(stderr, "Could not read file: %s.\n", ToBytes(path).c_str());
        return std::nullopt;
    }
    if (input->GetSize() > kLongestSource) {
        std::fprintf(stderr, "Could not allocate read buffer.\n");
        return std::nullopt;
    }
    std::string text(static_cast<size_t>(input->GetSize()), '\0');
    text.resize(input->ReadAt(0, text.data(), text.size()));
    return text;
}

template <class GetLength, class GetLog>
wxString InfoLog(GLuint name, const GetLength& getLength, const GetLog& getLog) {
    GLint length = 0;
    getLength(name, GL_INFO_LOG_LENGTH, &length);
    std::string log(static_cast<size_t>(std::max(length, 1)), '\0');
    getLog(name, length, &length, log.data());
    log.resize(static_cast<size_t>(std::max(length, 0)));
    return wxString::Format("InfoLog:\n%s\n\n", FromBytes(log));
}

void Report(const wxString& text, bool verbose) {
    if (verbose) {
        UserMessage_cls::Tell("Warning", text);
    } else {
        PrintError(text);
    }
}

/// 0 for a stage that cannot be had.
GLuint Compile(GLenum kind, const ShaderProgram_cls::Recipe& recipe, const ShaderProgram_cls::Stage& stage,
               bool verbose) {
    std::string text = recipe.preamble;
    for (const char* file : stage.files) {
        const auto source = ReadSource(file);
        if (!source) {
            Report(wxString::Format("The shader %s is missing and stays off.", stage.files.back()), verbose);
            return 0;
        }
        text += *source;
    }
    const GLuint shader = glCreateShader(kind);
    const char* begin = text.c_str();
    glShaderSource(shader, 1, &begin, nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled) return shader;
    wxString log = wxString(stage.files.back()) + ": " + InfoLog(shader, glGetShaderiv, glGetShaderInfoLog);
    if (kind == GL_FRAGMENT_SHADER) log += "Compile error in fragment shader.\n";
    Report(log, verbose);
    glDeleteShader(shader);
    return 0;
}

}  // namespace

std::unique_ptr<ShaderProgram_cls> ShaderProgram_cls::Build(const Recipe& recipe, bool verbose) {
    const GLuint vertex = Compile(GL_VERTEX_SHADER, recipe, recipe.vertex, verbose);
    const GLuint fragment = vertex ? Compile(GL_FRAGMENT_SHADER, recipe, recipe.fragment, verbose) : 0;
    if (!fragment) {
        glDeleteShader(vertex);
        return nullptr;
    }
    const GLuint program = glCreateProgram();
    glAttachShader(program, vertex);
    glAttachShader(program, fragment);
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    for (const Input& input : recipe.inputs) glBindAttribLocation(program, input.location, input.name);
    if (recipe.firstOutput) {
        glBindFragDataLocationIndexed(program, 0, 0, recipe.firstOutput);
        glBindFragDataLocationIndexed(program, 0, 1, recipe.secondOutput);
    }
    glLinkProgram(program);
    GLint linked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    if (!linked) MsgBoxExit(InfoLog(program, glGetProgramiv, glGetProgramInfoLog), "Error!");
    return std::unique_ptr<ShaderProgram_cls>(new ShaderProgram_cls(program));
}

void ShaderProgram_cls::Use() const {
    glUseProgram(mName);
}

int ShaderProgram_cls::GetUniform(const char* name) {
    const auto found = mUniforms.find(name);
    if (found != mUniforms.end()) return found->second;
    return mUniforms.emplace(name, glGetUniformLocation(mName, name)).first->second;
}
