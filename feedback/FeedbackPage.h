// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWebEnginePage>

namespace orrinvale
{

// The page around the form. It relays the script message "formLoaded" of the wrapper page, tells of loads that failed,
// and refuses whatever a page could want beyond its frame: windows, dialogs, files, permissions.
class FeedbackPage final : public QWebEnginePage
{
    Q_OBJECT

public:
    explicit FeedbackPage(QWebEngineProfile& profile);

Q_SIGNALS:
    void formLoaded();
    // The wrapper or the form in it, not what the form itself embeds.
    void navigationFailed();
    // The user pressed it, and the form has no use for it.
    void escapePressed();

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                            const QStringList& acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& suggestion, QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    void installScripts();
    void refuseRequests();
    void reportFailures();

    const QString m_secret; // begins each console message that is ours
    int m_mainFrameNavigations = 0;
};

} // namespace orrinvale
