// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// The types that Qt's headers name; nobody here calls OpenGL.
#pragma once
#include <stdint.h>
typedef unsigned int GLenum, GLbitfield, GLuint;
typedef unsigned char GLboolean, GLubyte;
typedef signed char GLbyte;
typedef short GLshort;
typedef unsigned short GLushort;
typedef int GLint, GLsizei;
typedef float GLfloat, GLclampf;
typedef double GLdouble, GLclampd;
typedef char GLchar;
typedef void GLvoid;
typedef intptr_t GLintptr, GLsizeiptr;
