// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

#include <chrono>
#include <memory>

namespace orrinvale
{

// A short silent film that begins again for ever, decoded frame by frame as it is asked for.
class Film
{
public:
    virtual ~Film() = default;
    virtual QSize size() const = 0; // in pixels, not empty
    virtual std::chrono::nanoseconds frameDuration() const = 0;
    // The next frame scaled to `size`; a null image when the film is broken from here on.
    virtual QImage nextFrame(const QSize& size) = 0;
};

// The film of that name among our resources; null when there is none or it cannot be decoded. The decoder is a module
// of its own, which the first call loads: it is far larger than the rest of the program.
std::unique_ptr<Film> openFilm(const QString& name);

// What the decoder module exports under the build's ORRINVALE_FILM_ENTRY_POINT. `data` outlives the film. Null for no
// film.
using FilmEntryPoint = Film* (*)(const unsigned char* data, std::size_t size);

} // namespace orrinvale
