// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "orrinvale/InstalledApp.h"

#include <functional>
#include <string_view>

namespace orrinvale
{

struct CustomProcess;
struct Platform;

// What the application picker shows and does, whatever it looks like: the applications found, the search, the choice
// and its label. Made each time the picker appears, and begins a scan then; it may go while the scan runs. Owned by the
// picker's sheet. Main thread.
class AppPicker
{
public:
    // The locale is that of sorting and searching.
    AppPicker(const Platform& platform, std::string locale);

    std::function<void()> onLoaded;
    std::function<void(CustomProcess)> onAdd;
    std::function<void()> onDismiss; // may destroy the picker

    bool isLoading() const { return m_isLoading; }
    const std::vector<InstalledApp>& allApps() const { return m_allApps; }

    const std::string& searchText() const { return m_searchText; }
    void setSearchText(std::string text);
    // The rows are the applications that the search finds.
    std::size_t rowCount() const { return m_rows.size(); }
    const InstalledApp& app(std::size_t row) const { return m_allApps[m_rows[row]]; }

    // Gives the application its usual label when there is none yet.
    void select(std::size_t row);
    const std::optional<InstalledApp>& selectedApp() const { return m_selectedApp; }
    // nullopt when the search does not find it.
    std::optional<std::size_t> selectedRow() const;

    const std::string& labelText() const { return m_labelText; }
    void setLabelText(std::string text) { m_labelText = std::move(text); }
    // Empty while no application is chosen.
    std::string labelPlaceholder() const;

    bool canAdd() const { return m_selectedApp.has_value() && !m_isDismissed; }
    void add();
    void cancel();

private:
    struct Found {
        std::vector<InstalledApp> apps;
        std::vector<std::u16string> searchForms;
    };

    void lookAtRunningApplications();
    void scan();
    void finishScan(Found found);
    void filter();
    void dismiss();

    const Platform& m_platform;
    std::string m_locale;
    bool m_isLoading = true;
    bool m_isDismissed = false;
    std::vector<InstalledApp> m_allApps;
    std::vector<std::u16string> m_searchForms; // of the names of all applications
    std::string m_searchText;
    std::vector<std::size_t> m_rows; // indices of all applications
    std::optional<InstalledApp> m_selectedApp;
    std::string m_labelText;
    Lifetime m_lifetime;
};

} // namespace orrinvale
