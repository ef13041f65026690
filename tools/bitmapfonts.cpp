// Prints the glyphs of GLUT's five bitmap fonts as rows of C++ initialisers. Run by tools/make-bitmap-fonts.sh, which
// needs a display for freeglut's own start-up; the program does not, because it draws these rows itself.

#include <GL/freeglut.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kSide = 64;
constexpr int kOrigin = 20;
constexpr int kFirst = 32;
constexpr int kLast = 126;
/// Beyond ASCII: degree, plus-minus, square, cube, micro, middle dot, multiplication.
constexpr int kMore[] = {0xB0, 0xB1, 0xB2, 0xB3, 0xB5, 0xB7, 0xD7};

bool IsSet(const std::vector<unsigned char>& pixels, int x, int y) {
    return pixels[static_cast<std::size_t>(y * kSide + x)] > 127;
}

/// {code, advance, left, bottom, width, height, "rows from the top, two hex digits for 8 pixels"}
void PrintGlyph(void* font, int code) {
    glClear(GL_COLOR_BUFFER_BIT);
    glRasterPos2i(kOrigin, kOrigin);
    glutBitmapCharacter(font, code);
    glFinish();
    std::vector<unsigned char> pixels(kSide * kSide);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, kSide, kSide, GL_RED, GL_UNSIGNED_BYTE, pixels.data());
    int left = kSide, right = -1, bottom = kSide, top = -1;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            if (!IsSet(pixels, x, y)) continue;
            left = std::min(left, x);
            right = std::max(right, x);
            bottom = std::min(bottom, y);
            top = std::max(top, y);
        }
    }
    const int advance = glutBitmapWidth(font, code);
    if (right < 0) {
        std::printf("    {%d, %d, 0, 0, 0, 0, \"\"},\n", code, advance);
        return;
    }
    std::string rows;
    for (int y = top; y >= bottom; --y) {
        for (int x = left; x <= right; x += 8) {
            int byte = 0;
            for (int bit = 0; bit < 8 && x + bit <= right; ++bit) {
                if (IsSet(pixels, x + bit, y)) byte |= 0x80 >> bit;
            }
            char hex[3];
            std::snprintf(hex, sizeof hex, "%02x", static_cast<unsigned>(byte));
            rows += hex;
        }
    }
    std::printf("    {%d, %d, %d, %d, %d, %d, \"%s\"},\n", code, advance, left - kOrigin, bottom - kOrigin,
                right - left + 1, top - bottom + 1, rows.c_str());
}

void PrintFont(const char* name, void* font) {
    std::printf("// %s\n", name);
    for (int code = kFirst; code <= kLast; ++code) PrintGlyph(font, code);
    for (const int code : kMore) PrintGlyph(font, code);
}

}  // namespace

int main(int argc, char** argv) {
    glutInit(&argc, argv);
    glutInitDisplayMode(GLUT_RGB | GLUT_SINGLE);
    glutInitWindowSize(kSide, kSide);
    glutCreateWindow("fonts");
    GLuint buffer = 0;
    GLuint colour = 0;
    // Into a frame buffer of its own: pixels of a window that is not shown are nobody's.
    glGenFramebuffers(1, &buffer);
    glBindFramebuffer(GL_FRAMEBUFFER, buffer);
    glGenRenderbuffers(1, &colour);
    glBindRenderbuffer(GL_RENDERBUFFER, colour);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, kSide, kSide);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, colour);
    glViewport(0, 0, kSide, kSide);
    glOrtho(0, kSide, 0, kSide, -1, 1);
    glColor3f(1, 1, 1);
    std::printf("// Made by tools/make-bitmap-fonts.sh from freeglut's fonts; not edited by hand.\n");
    PrintFont("HELVETICA_10", GLUT_BITMAP_HELVETICA_10);
    PrintFont("HELVETICA_12", GLUT_BITMAP_HELVETICA_12);
    PrintFont("HELVETICA_18", GLUT_BITMAP_HELVETICA_18);
    PrintFont("TIMES_ROMAN_10", GLUT_BITMAP_TIMES_ROMAN_10);
    PrintFont("TIMES_ROMAN_24", GLUT_BITMAP_TIMES_ROMAN_24);
    return 0;
}
