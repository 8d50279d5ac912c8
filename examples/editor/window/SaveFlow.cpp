#include "examples/editor/window/SaveFlow.h"

#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/NoticeBar.h"
#include "examples/editor/window/Question.h"

#include <QtWidgets/QFileDialog>

namespace tessarine::editor {

namespace {

using Completion = std::function<void(bool)>;
using Destination = PageFile::Destination;

void saveTo(EditorPage& page, const Destination& destination, const Completion& completion);

// What is never wrong to offer after a save that failed.
std::vector<Answer> waysOut(EditorPage& page, const Completion& completion) {
    return {{EditorPage::tr("Save As…"), QMessageBox::ActionRole,
             [&page, completion] { savePageAs(page, completion); }},
            {EditorPage::tr("Cancel"), QMessageBox::RejectRole, [completion] { completion(false); }}};
}

std::vector<Answer> answersTo(const SaveError& error, EditorPage& page, Destination destination,
                              const Completion& completion) {
    std::vector<Answer> answers = waysOut(page, completion);
    QString label;
    if (error.kind == SaveError::Kind::changedOnDisk) {
        destination.overwrite = SaveRequest::Overwrite::anything;
        label = EditorPage::tr("Overwrite");
    } else if (error.kind == SaveError::Kind::unencodable) {
        destination.format = error.alternative;
        label = EditorPage::tr("Save as %1").arg(displayName(error.alternative));
    } else {
        return answers;
    }
    const auto role =
        error.kind == SaveError::Kind::unencodable ? QMessageBox::AcceptRole : QMessageBox::DestructiveRole;
    answers.insert(answers.begin(), {label, role, [&page, destination, completion] {
                                         saveTo(page, destination, completion);
                                     }});
    return answers;
}

void saveTo(EditorPage& page, const Destination& destination, const Completion& completion) {
    page.file().save(destination, [&page, destination, completion](const PageFile::SaveResult& saved) {
        if (saved) {
            page.notice().hide();
            return completion(true);
        }
        ask(&page, saved.error().message, EditorPage::tr("Your text is still here."),
            answersTo(saved.error(), page, destination, completion));
    });
}

} // namespace

void savePage(EditorPage& page, const Completion& completion) {
    if (!page.canSave()) return completion(false);
    if (page.file().path().isEmpty()) return savePageAs(page, completion);
    saveTo(page, page.file().destination(), completion);
}

void savePageAs(EditorPage& page, const Completion& completion) {
    if (!page.canSave()) return completion(false);
    auto* dialog = new QFileDialog(&page, EditorPage::tr("Save As"), page.file().path());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    QObject::connect(dialog, &QFileDialog::fileSelected, &page, [&page, completion](const QString& path) {
        saveTo(page, {path, page.file().format(), SaveRequest::Overwrite::anything}, completion);
    });
    QObject::connect(dialog, &QFileDialog::rejected, &page, [completion] { completion(false); });
    dialog->open();
}

void askToClose(EditorPage& page, const Completion& completion) {
    if (!page.file().isModified()) return completion(true);
    ask(&page, EditorPage::tr("Save the changes to “%1”?").arg(page.file().name()),
        EditorPage::tr("Without saving they are lost."),
        {{EditorPage::tr("Save"), QMessageBox::AcceptRole,
          [&page, completion] { savePage(page, completion); }},
         {EditorPage::tr("Discard"), QMessageBox::DestructiveRole, [completion] { completion(true); }},
         {EditorPage::tr("Cancel"), QMessageBox::RejectRole, [completion] { completion(false); }}});
}

} // namespace tessarine::editor
