// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/Film.h"

#include "orrinvale/InstalledFiles.h"

#include <QLibrary>
#include <QResource>

namespace orrinvale
{

namespace
{

FilmEntryPoint decoder()
{
    static const auto entryPoint = [] {
        const auto path = moduleFile(QStringLiteral("orrinvale-film.so"));
        return path ? reinterpret_cast<FilmEntryPoint>(QLibrary::resolve(*path, filmEntryPoint)) : nullptr;
    }();
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
