// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "film/Film.h"

#include <QWidget>

#include <functional>

namespace orrinvale
{

class MainQueue;

// The looping picture of the popover. It fills its rounded bounds, runs only while it can be seen, and stays empty when
// its film is missing or broken. Main thread.
class IllustrationView final : public QWidget
{
    Q_OBJECT

public:
    enum class Motion { film, still };
    using OpenFilm = std::function<std::unique_ptr<Film>(const QString& name)>;

    IllustrationView(MainQueue& queue, Motion motion, OpenFilm open, QWidget* parent);
    ~IllustrationView() override;

    // Starts the film of that name from its beginning, as soon as the view can be seen.
    void play(const QString& name);
    void stop();
    QString filmName() const { return m_name; }
    bool isPlaying() const { return static_cast<bool>(m_timer); }
    const QImage& frame() const { return m_frame; }

    // Kept by the popover: which film belongs to the state.
    bool isActive = false;
    bool didSetup = false;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void start();
    void showNextFrame();

    MainQueue& m_queue;
    Motion m_motion;
    OpenFilm m_open;
    QString m_name;
    std::unique_ptr<Film> m_film;
    QImage m_frame;
    Cancellable m_timer;
    Cancellable m_start;
};

// The size at which a film of `film` covers `bounds`, keeping its shape.
QSize aspectFill(const QSize& film, const QSize& bounds);

} // namespace orrinvale
