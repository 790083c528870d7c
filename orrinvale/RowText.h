// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace orrinvale
{

class TextLabel;
struct WindowPalette;

// A row's title over its subtitle. The title wraps; the subtitle wraps too, or is cut where it says.
class RowText final : public QWidget
{
    Q_OBJECT

public:
    RowText(const QString& title, const QString& subtitle, QWidget* parent,
            Qt::TextElideMode subtitleElision = Qt::ElideNone);

    void setSubtitle(const QString& subtitle);
    void applyTheme(const WindowPalette& colours);
    int heightFor(int width) const;

    TextLabel& titleLabel() const { return *m_title; }
    TextLabel& subtitleLabel() const { return *m_subtitle; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    TextLabel* m_title;
    TextLabel* m_subtitle;
};

} // namespace orrinvale
