#include "ui/Prompter.h"

#include <utility>

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include "ui/Window.h"
#include "ui/qt/Native.h"

namespace ui {

namespace {

Prompter* replacement = nullptr;

QMessageBox::Icon iconOf(QuestionIcon icon) {
    switch (icon) {
    case QuestionIcon::information:
        return QMessageBox::Information;
    case QuestionIcon::question:
        return QMessageBox::Question;
    case QuestionIcon::exclamation:
        return QMessageBox::Warning;
    case QuestionIcon::critical:
        return QMessageBox::Critical;
    case QuestionIcon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::yesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::ok:
        break;
    }
    return QMessageBox::Ok;
}

/// "Text (*.txt)|*.txt|All (*.*)|*.*" as the toolkit wants it. Empty parts count for nothing.
QStringList filtersOf(const Text& filter) {
    const QStringList parts = toQt(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == "*.*" ? QStringLiteral("*") : parts[i + 1];
        filters.append(parts[i] + " (" + QString(pattern).replace(';', ' ') + ')');
    }
    return filters;
}

/// The toolkit takes the last part of a folder that is not there for the name of a file.
QString existingFolder(std::filesystem::path folder) {
    std::error_code ignored;
    while (folder.has_relative_path() && !is_directory(folder, ignored)) {
        folder = folder.parent_path();
    }
    return pathToQt(folder);
}

/// Of a pattern, as of a name, the toolkit's own dialog would look for the file.
void presetName(QFileDialog& dialog, const QString& name) {
    auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (box != nullptr && name.contains('*')) {
        box->setText(name);
        box->selectAll();
    } else {
        dialog.selectFile(name);
    }
}

} // namespace

Answer Prompter::ask(Window* window, const MessageBox& box) {
    QMessageBox message(window == nullptr ? nullptr : window->native().widget.data());
    message.setIcon(iconOf(box.icon));
    message.setWindowTitle(box.title.empty() ? QApplication::applicationName() : toQt(box.title));
    message.setTextFormat(Qt::PlainText);
    message.setText(toQt(box.text));
    message.setStandardButtons(buttonsOf(box.buttons));
    for (const auto& [button, words] :
         {std::pair(QMessageBox::Yes, &box.yes), std::pair(QMessageBox::No, &box.no),
          std::pair(QMessageBox::Cancel, &box.cancel)}) {
        if (QAbstractButton* shown = message.button(button); shown != nullptr && !words->empty()) {
            shown->setText(toQt(*words));
        }
    }
    if (box.buttons != Buttons::ok) { // otherwise the first, which some desktops have as Cancel
        message.setDefaultButton(QMessageBox::Yes);
    }
    switch (message.exec()) {
    case QMessageBox::Yes:
        return Answer::yes;
    case QMessageBox::No:
        return Answer::no;
    case QMessageBox::Cancel:
        return Answer::cancel;
    default:
        return box.buttons == Buttons::yesNo ? Answer::no : Answer::ok;
    }
}

std::vector<std::filesystem::path> Prompter::chooseFiles(Window* window,
                                                         const FileQuestion& question) {
    const bool save = question.kind == FileQuestion::Kind::save;
    QFileDialog dialog(window == nullptr ? nullptr : window->native().widget.data(),
                       toQt(question.title), existingFolder(question.folder));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (question.kind == FileQuestion::Kind::openSeveral) {
        dialog.setFileMode(QFileDialog::ExistingFiles);
    }
    if (question.kind == FileQuestion::Kind::folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
    }
    const QStringList filters = filtersOf(question.filter);
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the description names the pattern
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(question.filterIndex - 1));
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.asksToReplace);
    dialog.setDefaultSuffix(toQt(question.defaultExtension));
    if (question.fileName.has_parent_path()) {
        dialog.setDirectory(pathToQt(question.fileName.parent_path()));
    }
    presetName(dialog, pathToQt(question.fileName.filename()));
    std::vector<std::filesystem::path> files;
    if (dialog.exec() == QDialog::Accepted) {
        for (const QString& file : dialog.selectedFiles()) {
            files.push_back(pathFromQt(file));
        }
    }
    return files;
}

std::optional<std::filesystem::path> Prompter::chooseFile(Window* window,
                                                          const FileQuestion& question) {
    const std::vector<std::filesystem::path> files = chooseFiles(window, question);
    return files.empty() ? std::nullopt : std::optional(files.front());
}

void Prompter::beep() {
    QApplication::beep();
}

void Prompter::openAddress(const std::string& address) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

void Prompter::tell(Window* window, const text::Message& message) {
    constexpr QuestionIcon icons[] = {QuestionIcon::none, QuestionIcon::information,
                                      QuestionIcon::exclamation, QuestionIcon::critical};
    ask(window,
        {message.text, message.title, Buttons::ok, icons[static_cast<std::size_t>(message.icon)]});
}

Prompter& Prompter::current() {
    static Prompter real;
    return replacement == nullptr ? real : *replacement;
}

void Prompter::use(Prompter* prompter) {
    replacement = prompter;
}

} // namespace ui
