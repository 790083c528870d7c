// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "film/Film.h"

#include "platform/qt/InstalledFiles.h"

#include <QResource>

namespace orrinvale
{

namespace
{

FilmEntryPoint decoder()
{
    static const auto entryPoint = reinterpret_cast<FilmEntryPoint>(
        moduleEntryPoint(QStringLiteral("orrinvale-film.so"), ORRINVALE_FILM_ENTRY_POINT));
    return entryPoint;
}

} // namespace

std::unique_ptr<Film> openFilm(const QString& name)
{
    const QResource movie(QStringLiteral(":/videos/") + name + QStringLiteral(".mov"));
    if (!movie.isValid() || movie.compressionAlgorithm() != QResource::NoCompression || !decoder())
        return nullptr;
    return std::unique_ptr<Film>(decoder()(movie.data(), static_cast<std::size_t>(movie.size())));
}

} // namespace orrinvale
