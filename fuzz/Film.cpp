// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// The decoder over a film that is none any more.
#include "film/Film.h"

#include "fuzz/FuzzInput.h"

extern "C" orrinvale::Film* ORRINVALE_FILM_ENTRY_POINT(const unsigned char* data, std::size_t size);

using namespace orrinvale;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr QSize shown(316, 177);
    constexpr int frames = 4;
    const std::unique_ptr<Film> film(ORRINVALE_FILM_ENTRY_POINT(data, size));
    if (!film)
        return 0;
    require(!film->size().isEmpty(), "a film has a size");
    require(film->frameDuration().count() >= 0, "a frame does not end before it begins");
    for (int frame = 0; frame < frames; ++frame) {
        const auto image = film->nextFrame(shown);
        require(image.isNull() || image.size() == shown, "a frame has the size that was asked for");
    }
    return 0;
}
