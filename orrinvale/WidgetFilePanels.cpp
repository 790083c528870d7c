// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WidgetFilePanels.h"

#include <QFileDialog>
#include <QPointer>
#include <QStandardPaths>

namespace orrinvale
{

namespace
{

QFileDialog* makeDialog(FilePanels::WindowId window, const QString& title)
{
    auto* dialog = new QFileDialog(QWidget::find(window), title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

} // namespace

Cancellable WidgetFilePanels::ask(QFileDialog* dialog, Answer answer)
{
    QObject::connect(dialog, &QDialog::finished, this, [dialog, answer = std::move(answer)](int result) {
        const auto chosen = dialog->selectedFiles();
        if (result == QDialog::Accepted && !chosen.isEmpty())
            answer(std::filesystem::path(QFile::encodeName(chosen.front()).toStdString()));
        else
            answer(std::nullopt);
    });
    dialog->open();
    // The user's closing deletes the dialog, and so does its parent's end.
    return Cancellable([panel = QPointer(dialog)] {
        if (!panel)
            return;
        panel->disconnect();
        panel->close();
    });
}

Cancellable WidgetFilePanels::chooseFolder(const FolderRequest& request, Answer answer)
{
    auto* dialog = makeDialog(request.window, QStringLiteral("Downloads Folder"));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, QString::fromStdString(request.prompt));
    dialog->setDirectory(QFile::decodeName(request.folder.c_str()));
    return ask(dialog, std::move(answer));
}

Cancellable WidgetFilePanels::chooseFile(const SaveRequest& request, Answer answer)
{
    auto* dialog = makeDialog(request.window, QStringLiteral("Export"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setMimeTypeFilters({QString::fromStdString(request.contentType)});
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->selectFile(QString::fromStdString(request.fileName));
    return ask(dialog, std::move(answer));
}

} // namespace orrinvale
