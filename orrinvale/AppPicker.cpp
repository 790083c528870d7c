// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppPicker.h"

#include "base/MainQueue.h"
#include "base/SerialQueue.h"
#include "orrinvale/CustomProcess.h"
#include "platform/InstalledApplications.h"
#include "platform/Platform.h"
#include "platform/RunningApplications.h"
#include "text/LocalizedText.h"

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr std::int64_t pickedScore = 3;

std::string usualLabel(const InstalledApp& app)
{
    return app.name + " active";
}

} // namespace

AppPicker::AppPicker(const Platform& platform, std::string locale) : m_platform(platform), m_locale(std::move(locale))
{
    lookAtRunningApplications();
}

// The fresh look is taken on the background queue: what is posted there after it comes back after it.
void AppPicker::lookAtRunningApplications()
{
    m_platform.runningApplications.refresh();
    m_platform.background.post(
        [&queue = m_platform.mainQueue, then = m_lifetime.unlessGone([this] { scan(); })] { queue.post(then); });
}

void AppPicker::scan()
{
    m_platform.applicationFiles.post(
        [&installed = m_platform.installedApplications, &queue = m_platform.mainQueue,
         running = m_platform.runningApplications.applications(), locale = m_locale,
         finish = m_lifetime.unlessGone([this](Found found) { finishScan(std::move(found)); })] {
            if (finish.isGone())
                return;
            Found found{installedApps(installed.scan(), running, locale), {}};
            for (const auto& app : found.apps)
                found.searchForms.push_back(searchForm(app.name, locale));
            queue.post([finish, found = std::move(found)]() mutable { finish(std::move(found)); });
        });
}

void AppPicker::finishScan(Found found)
{
    m_allApps = std::move(found.apps);
    m_searchForms = std::move(found.searchForms);
    m_isLoading = false;
    filter();
    if (onLoaded)
        onLoaded();
}

void AppPicker::setSearchText(std::string text)
{
    m_searchText = std::move(text);
    filter();
}

void AppPicker::filter()
{
    const auto part = searchForm(m_searchText, m_locale);
    m_rows.clear();
    for (std::size_t index = 0; index < m_allApps.size(); ++index) {
        if (contains(m_searchForms[index], part))
            m_rows.push_back(index);
    }
}

void AppPicker::select(std::size_t row)
{
    m_selectedApp = app(row);
    if (m_labelText.empty())
        m_labelText = usualLabel(*m_selectedApp);
}

std::optional<std::size_t> AppPicker::selectedRow() const
{
    if (!m_selectedApp)
        return std::nullopt;
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [this](auto index) { return m_allApps[index].id == m_selectedApp->id; });
    return found == m_rows.end() ? std::nullopt : std::optional<std::size_t>(found - m_rows.begin());
}

std::string AppPicker::labelPlaceholder() const
{
    return m_selectedApp ? "e.g. " + usualLabel(*m_selectedApp) : std::string();
}

void AppPicker::add()
{
    if (!canAdd())
        return;
    auto label = m_labelText.empty() ? usualLabel(*m_selectedApp) : m_labelText;
    if (onAdd)
        onAdd({.bundleID = m_selectedApp->id, .label = std::move(label), .score = pickedScore});
    dismiss();
}

void AppPicker::cancel()
{
    if (!m_isDismissed)
        dismiss();
}

void AppPicker::dismiss()
{
    m_isDismissed = true;
    if (const auto action = onDismiss) // a copy: it may destroy the picker
        action();
}

} // namespace orrinvale
