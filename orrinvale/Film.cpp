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

FilmEntryPoint loadDecoder()
{
    const auto path = moduleFile(QStringLiteral("orrinvale-film.so"));
    if (!path)
        return nullptr;
    QLibrary module(*path);
    // A library that became too old or too new for the module shows here, not at the call that misses it.
    module.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    const auto entryPoint = reinterpret_cast<FilmEntryPoint>(module.resolve(ORRINVALE_FILM_ENTRY_POINT));
    if (!entryPoint)
        module.unload();
    return entryPoint;
}

FilmEntryPoint decoder()
{
    static const auto entryPoint = loadDecoder();
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
