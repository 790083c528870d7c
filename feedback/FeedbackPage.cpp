// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/FeedbackPage.h"

#include <QAuthenticator>
#include <QColor>
#include <QUuid>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

namespace orrinvale
{

namespace
{

const auto loadedMessage = QStringLiteral("formLoaded");
const auto failedMessage = QStringLiteral("navigationFailed");
const auto escapeMessage = QStringLiteral("escape");

// Defines the handler that the wrapper page posts to. The console is bound before any page can replace it, so that no
// page learns the secret.
const auto handlerScript = QStringLiteral(R"((() => {
    const relay = console.log.bind(console, '%1');
    window.webkit = { messageHandlers: { formLoaded: { postMessage: () => relay() } } };
})())");

// A frame's load event fires for the browser's own error page as well; the form is the frame right below the wrapper.
const auto frameScript = QStringLiteral(R"((() => {
    if (window !== top && parent === top && location.protocol === 'chrome-error:')
        console.log('%1');
})())");

// The engine keeps the key to itself even where the form has no use for it.
const auto escapeScript = QStringLiteral(R"((() => {
    addEventListener('keydown', event => {
        if (event.key === 'Escape' && !event.isComposing)
            setTimeout(() => event.defaultPrevented || console.log('%1'));
    }, true);
})())");

QWebEngineScript script(const QString& source, QWebEngineScript::InjectionPoint point)
{
    QWebEngineScript made;
    made.setSourceCode(source);
    made.setInjectionPoint(point);
    made.setWorldId(QWebEngineScript::MainWorld);
    return made;
}

// In every frame, and out of reach for the page's own scripts.
QWebEngineScript scriptInFrames(const QString& source, QWebEngineScript::InjectionPoint point)
{
    auto made = script(source, point);
    made.setWorldId(QWebEngineScript::ApplicationWorld);
    made.setRunsOnSubFrames(true);
    return made;
}

void turnOffExtras(QWebEngineSettings& settings)
{
    for (const auto extra :
         {QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::JavascriptCanAccessClipboard,
          QWebEngineSettings::LocalContentCanAccessFileUrls, QWebEngineSettings::LocalContentCanAccessRemoteUrls,
          QWebEngineSettings::HyperlinkAuditingEnabled, QWebEngineSettings::PluginsEnabled,
          QWebEngineSettings::FullScreenSupportEnabled, QWebEngineSettings::ScreenCaptureEnabled,
          QWebEngineSettings::AutoLoadIconsForPage, QWebEngineSettings::AllowRunningInsecureContent,
          QWebEngineSettings::AllowWindowActivationFromJavaScript, QWebEngineSettings::DnsPrefetchEnabled,
          QWebEngineSettings::PdfViewerEnabled, QWebEngineSettings::NavigateOnDropEnabled})
        settings.setAttribute(extra, false);
    settings.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

} // namespace

FeedbackPage::FeedbackPage(QWebEngineProfile& profile)
    : QWebEnginePage(&profile), m_secret(QUuid::createUuid().toString(QUuid::Id128))
{
    setBackgroundColor(QColor(Qt::transparent));
    turnOffExtras(*settings());
    installScripts();
    refuseRequests();
    reportFailures();
}

void FeedbackPage::installScripts()
{
    scripts().insert(script(handlerScript.arg(m_secret + loadedMessage), QWebEngineScript::DocumentCreation));
    scripts().insert(scriptInFrames(frameScript.arg(m_secret + failedMessage), QWebEngineScript::DocumentReady));
    scripts().insert(scriptInFrames(escapeScript.arg(m_secret + escapeMessage), QWebEngineScript::DocumentCreation));
}

void FeedbackPage::refuseRequests()
{
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl& origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [](const QUrl&, QAuthenticator* answer) { *answer = {}; });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [](const QUrl&, QAuthenticator* answer) { *answer = {}; });
    connect(this, &QWebEnginePage::quotaRequested, this, [](QWebEngineQuotaRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
}

void FeedbackPage::reportFailures()
{
    connect(this, &QWebEnginePage::loadingChanged, this, [this](const QWebEngineLoadingInfo& information) {
        if (information.status() == QWebEngineLoadingInfo::LoadFailedStatus)
            Q_EMIT navigationFailed();
    });
    connect(this, &QWebEnginePage::renderProcessTerminated, this, &FeedbackPage::navigationFailed);
}

bool FeedbackPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    m_mainFrameNavigations += isMainFrame ? 1 : 0;
    return QWebEnginePage::acceptNavigationRequest(url, type, isMainFrame);
}

void FeedbackPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int, const QString&)
{
    // The handler exists in every document of the main frame, but only the first one is our wrapper.
    if (message == m_secret + loadedMessage && m_mainFrameNavigations <= 1)
        Q_EMIT formLoaded();
    if (message == m_secret + failedMessage)
        Q_EMIT navigationFailed();
    if (message == m_secret + escapeMessage)
        Q_EMIT escapePressed();
}

QWebEnginePage* FeedbackPage::createWindow(WebWindowType)
{
    return nullptr;
}

QStringList FeedbackPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&)
{
    return {};
}

void FeedbackPage::javaScriptAlert(const QUrl&, const QString&) {}

bool FeedbackPage::javaScriptConfirm(const QUrl&, const QString&)
{
    return false;
}

bool FeedbackPage::javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*)
{
    return false;
}

} // namespace orrinvale
