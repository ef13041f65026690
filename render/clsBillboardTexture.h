#pragma once

#include <wx/string.h>

#include <cstdint>
#include <map>
#include <vector>

class wxImage;

/// The picture on the billboards of one attribute, which owns it: the pixels, and its textures in OpenGL, one
/// for each group of contexts.
/// Threads: the thread of the context.
/// Failure: a file that is missing, no picture, without alpha channel or too large is told once, and the
/// picture is a soft round sprite then.
class BillboardTexture_cls {
  public:
    /// Loads the file and makes the texture of the current context anew.
    void RefreshTex(const wxString& file);
    /// Name of the current context's texture, made when it is first asked for or the file's name has
    /// changed.
    unsigned int GetName(const wxString& file);

    /// Four bytes a pixel, red, green, blue and alpha, top row first. The image has an alpha channel.
    void GenerateBufferRGBA(const wxImage& image);
    void DeleteBufferRGBA();

    int GetWidth() const { return mWidth; }
    int GetHeight() const { return mHeight; }

  private:
    void Load();
    void MakeSoftSprite();
    unsigned int Upload() const;

    wxString mFile;
    wxString mToldFile;  ///< whose faults have been told
    int mWidth = 0;
    int mHeight = 0;
    std::vector<uint8_t> mPixels;
    std::map<int, unsigned int> mNames;  ///< by GLContext_cls::GetCurrentGroup()
};
