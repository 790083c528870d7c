// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "feedback/ConfiguredForm.h"
#include "feedback/Conversation.h"
#include "feedback/FeedbackWebView.h"
#include "feedback/FeedbackWindow.h"
#include "kit/WindowAccessibility.h"
#include "orrinvale/FeedbackLines.h"
#include "platform/qt/QtMainQueue.h"

#include <QAccessible>
#include <QApplication>
#include <QCommandLineParser>

#include <csignal>
#include <cstdio>

using namespace orrinvale;

namespace
{

struct Options {
    Look look;
    FeedbackOverlay::Motion motion;
};

std::optional<Options> parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption look(QStringLiteral("look"), {}, QStringLiteral("name"),
                                  QLatin1String(feedbackLines::nameOf(Look::light)));
    const QCommandLineOption still(QStringLiteral("still"));
    parser.addOptions({look, still});
    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty())
        return std::nullopt;
    const auto named = feedbackLines::lookNamed(parser.value(look).toUtf8());
    if (!named)
        return std::nullopt;
    return Options{*named, parser.isSet(still) ? FeedbackOverlay::Motion::still : FeedbackOverlay::Motion::moving};
}

// The process that starts us keeps some signals for itself, and a blocked signal stays blocked in a child.
void receiveSignalsAgain()
{
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

const char* lineFor(FeedbackState::Overlay overlay)
{
    switch (overlay) {
    case FeedbackState::Overlay::loading:
        break;
    case FeedbackState::Overlay::failed:
        return feedbackLines::failed;
    case FeedbackState::Overlay::none:
        return feedbackLines::loaded;
    }
    return feedbackLines::loading;
}

// Each state once, from the moment the window is on the screen.
Cancellables reportStates(const std::shared_ptr<FeedbackState>& state, MainQueue& queue, Conversation& conversation)
{
    auto last = std::make_shared<FeedbackState::Overlay>(state->overlay());
    conversation.report(lineFor(*last));
    Cancellables reports;
    for (auto* value : {&state->isLoading, &state->loadFailed}) {
        reports += value->observeOn(
            queue,
            [state, last, &conversation](bool) {
                if (std::exchange(*last, state->overlay()) != state->overlay())
                    conversation.report(lineFor(*last));
            },
            Deliver::changesOnly);
    }
    return reports;
}

void obeyOrders(const Conversation& conversation, FeedbackWindow& window)
{
    QObject::connect(&conversation, &Conversation::raiseOrdered, &window, &FeedbackWindow::bringForward);
    QObject::connect(&conversation, &Conversation::ended, &window, &QWidget::close);
    QObject::connect(&conversation, &Conversation::lookOrdered, &window, &FeedbackWindow::applyTheme);
}

// The graphics drivers would keep shaders on the disk, where nothing of a visit shall stay.
void keepNoShaders()
{
    ::qputenv("MESA_SHADER_CACHE_DISABLE", "true");
    ::qputenv("__GL_SHADER_DISK_CACHE", "0");
    QApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
}

} // namespace

// The feedback window as a process of its own: the web engine's memory goes with it.
int main(int argc, char** argv)
{
    receiveSignalsAgain();
    keepNoShaders();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orrinvale"));
    QApplication::setDesktopFileName(QStringLiteral("orrinvale"));
    QAccessible::installFactory(accessibleWindow);
    const auto options = parse(QApplication::arguments());
    const auto form = configuredForm();
    if (!options || !form) {
        std::fputs(form ? "Usage: orrinvale-feedback [--look light|dark|sakura] [--still]\n"
                        : "orrinvale-feedback: this build has no form\n",
                   stderr);
        return 2;
    }

    QtMainQueue queue;
    Conversation conversation;
    const auto state = std::make_shared<FeedbackState>();
    auto* view = new FeedbackView(state, queue, options->motion);
    FeedbackWindow window(view, options->look);
    obeyOrders(conversation, window);
    window.bringForward();
    auto* webView = new FeedbackWebView(*form, state, queue);
    QObject::connect(webView, &FeedbackWebView::escapePressed, &window, &QWidget::close);
    view->setForm(webView);
    const auto reports = reportStates(state, queue, conversation);
    return QApplication::exec();
}
