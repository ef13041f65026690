#pragma once

// The OpenGL headers, with the prototypes of all core functions.
#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <GL/glu.h>
