#include "support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

TempFolder_cls::TempFolder_cls() {
    std::string name = (std::filesystem::temp_directory_path() / "varnholt-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    mPath = name;
}

TempFolder_cls::~TempFolder_cls() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
}

std::string TempFolder_cls::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(mPath / name, std::ios::binary) << bytes;
    return File(name);
}

std::string ReadWholeFile(const std::string& name) {
    std::ifstream stream(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
