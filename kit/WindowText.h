// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace orrinvale
{

class TextLabel;

// One kind of text in the windows, in logical pixels at a text scale of 1.
struct TextStyle {
    double pixels;
    double lineHeight;
    QFont::Weight weight = QFont::Normal;
    double tracking = 0;

    QFont font() const; // at the desktop's text scale
    int line() const;   // likewise
};

void applyTextStyle(TextLabel& label, const TextStyle& style, const QColor& colour);
// A length that grows with the text.
int withText(double pixels);

namespace windowText
{
inline constexpr TextStyle welcome{24, 32, QFont::DemiBold, -0.35};
inline constexpr TextStyle dayTotal{20, 24, QFont::DemiBold, -0.2};
inline constexpr TextStyle sheetHead{15, 20, QFont::DemiBold};
inline constexpr TextStyle windowHead{14, 20, QFont::DemiBold};
inline constexpr TextStyle rowTitle{13, 18};
inline constexpr TextStyle strongTitle{13, 18, QFont::DemiBold};
inline constexpr TextStyle mediumTitle{13, 18, QFont::Medium};
inline constexpr TextStyle button{12, 18, QFont::Medium};
inline constexpr TextStyle body{12, 17};
inline constexpr TextStyle mediumBody{12, 17, QFont::Medium};
inline constexpr TextStyle subtitle{11, 15};
inline constexpr TextStyle strongSubtitle{11, 15, QFont::DemiBold};
inline constexpr TextStyle sectionHead{11, 16, QFont::DemiBold, 0.55};
inline constexpr TextStyle dateHead{11, 16, QFont::DemiBold};
inline constexpr TextStyle small{10, 14};
inline constexpr TextStyle mediumSmall{10, 14, QFont::Medium};
inline constexpr TextStyle fieldHead{9, 12, QFont::DemiBold, 0.55};
} // namespace windowText

} // namespace orrinvale
