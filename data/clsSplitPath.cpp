#include "data/clsSplitPath.h"

SplitPath_cls::SplitPath_cls(const wxString& path) {
    const size_t slash = path.rfind('/');
    const size_t nameBegin = slash == wxString::npos ? 0 : slash + 1;
    const size_t dot = path.rfind('.');
    const size_t stemEnd = dot == wxString::npos || dot < nameBegin ? path.length() : dot;

    mDirectory = path.substr(0, nameBegin);
    mName = path.substr(nameBegin, stemEnd - nameBegin);
    mExtension = path.substr(stemEnd);
    mStem = path.substr(0, stemEnd);
}
