// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "feedback/Coordinator.h"
#include "feedback/FormAddress.h"

#include <QWebEngineView>

#include <memory>

class QWebEngineProfile;

namespace orrinvale
{

class FeedbackPage;

// The form in an embedded web view. It begins to load at once, and only once. Nothing of it outlives the view: no
// cookies, no cache, no downloads. Main thread.
class FeedbackWebView final : public QWebEngineView
{
    Q_OBJECT

public:
    FeedbackWebView(const FormAddress& url, std::weak_ptr<FeedbackState> state, MainQueue& queue);
    ~FeedbackWebView() override;

Q_SIGNALS:
    // The user pressed it, and the form has no use for it.
    void escapePressed();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    Coordinator m_coordinator;
    std::unique_ptr<QWebEngineProfile> m_profile; // outlives its page
    std::unique_ptr<FeedbackPage> m_page;
};

} // namespace orrinvale
