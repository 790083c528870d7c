// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FilePanels.h"

#include <QObject>

class QFileDialog;

namespace orrinvale
{

// File panels of the toolkit's own, for desktops that offer none.
class WidgetFilePanels final : public QObject, public FilePanels
{
    Q_OBJECT

public:
    [[nodiscard]] Cancellable chooseFolder(const FolderRequest& request, Answer answer) override;
    [[nodiscard]] Cancellable chooseFile(const SaveRequest& request, Answer answer) override;

private:
    Cancellable ask(QFileDialog* dialog, Answer answer);
};

} // namespace orrinvale
