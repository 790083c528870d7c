// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/FeedbackWebView.h"

#include "feedback/FeedbackPage.h"
#include "orrinvale/FeedbackState.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>

#include <utility>

namespace orrinvale
{

namespace
{

std::unique_ptr<QWebEngineProfile> passingProfile()
{
    // A profile without a name is off the record.
    auto profile = std::make_unique<QWebEngineProfile>();
    profile->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    QObject::connect(profile.get(), &QWebEngineProfile::downloadRequested,
                     [](QWebEngineDownloadRequest* download) { download->cancel(); });
    return profile;
}

} // namespace

FeedbackWebView::FeedbackWebView(const FormAddress& url, std::weak_ptr<FeedbackState> state, MainQueue& queue)
    : m_coordinator(std::move(state), queue), m_profile(passingProfile()),
      m_page(std::make_unique<FeedbackPage>(*m_profile))
{
    setAccessibleName(QStringLiteral("Survey"));
    setAcceptDrops(false);
    connect(m_page.get(), &FeedbackPage::formLoaded, this, [this] { m_coordinator.receivedFormLoaded(); });
    connect(m_page.get(), &FeedbackPage::navigationFailed, this, [this] { m_coordinator.navigationFailed(); });
    connect(m_page.get(), &FeedbackPage::escapePressed, this, &FeedbackWebView::escapePressed);
    setPage(m_page.get());
    m_page->setHtml(QString::fromStdString(wrapperPage(url)), QUrl(QString::fromStdString(url.origin)));
    m_coordinator.startLoadTimeout();
}

FeedbackWebView::~FeedbackWebView() = default;

void FeedbackWebView::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto action :
         {QWebEnginePage::Cut, QWebEnginePage::Copy, QWebEnginePage::Paste, QWebEnginePage::SelectAll})
        menu->addAction(m_page->action(action));
    menu->popup(event->globalPos());
}

bool FeedbackWebView::focusNextPrevChild(bool next)
{
    // The form is the window's only stop: from its last field the focus comes back to its first.
    focusProxy()->clearFocus();
    setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace orrinvale
