#include "DialogSet.h"

#include "app/KesmiraApp.h"
#include "dialogs/AboutDlg.h"
#include "dialogs/AdvancedRepairDlg.h"
#include "dialogs/AlreadyExistFileDlg.h"
#include "dialogs/BackApplicationDlg.h"
#include "dialogs/CloseApplicationDlg.h"
#include "dialogs/CompletionMsg.h"
#include "dialogs/FolderExist.h"
#include "dialogs/MessageBox.h"
#include "dialogs/ReferenceFileDlg.h"
#include "dialogs/SavingFinishDlg.h"
#include "dialogs/StopDlg.h"
#include "update/QDownloadApp.h"
#include "update/QMajorUpdate.h"
#include "update/QMinorUpdate.h"

#include <QCoreApplication>
#include <QPushButton>

namespace {

using Made = std::unique_ptr<FramelessDialog>;

template<typename Dialog>
Made plain(QWidget *parent)
{
    return std::make_unique<Dialog>(parent);
}

Made makeMessage(QWidget *parent, bool question)
{
    auto box = std::make_unique<MessageBox>(parent);
    box->setText(
        QCoreApplication::translate("Test", "The folder that was chosen is read-only, and another one is wanted."));
    box->setQuestion(question);
    return box;
}

Made makeAdvanced(QWidget *parent, const QString &text)
{
    auto reference = new ReferenceFileDlg;
    auto dialog = std::make_unique<AdvancedRepairDlg>(parent, text, reference);
    dialog->setDamagedFile(QString(150, 'n') + ".jpg", text != AdvancedRepairDlg::jpegText());
    QObject::connect(dialog.get(), &QObject::destroyed, reference, &QObject::deleteLater);
    return dialog;
}

Made makeReference(QWidget *parent, bool withSample)
{
    auto dialog = std::make_unique<ReferenceFileDlg>(parent);
    dialog->setDamagedFile(QString(150, 'n') + ".jpg");
    if (!withSample) return dialog;
    static_cast<ScriptedChooser &>(fileChooser()).answers.push_back(QStringList{"/home/ann/DCIM/IMG_0001.JPG"});
    dialog->OnBrowseRefrenceFile();
    return dialog;
}

Made makeFile(QWidget *parent, quint16 results)
{
    pApp->nResultCounter = results;
    auto dialog = std::make_unique<AlreadyExistFileDlg>(parent);
    dialog->InitStart("a.jpg", "Copy(1)_a.jpg");
    return dialog;
}

} // namespace

const std::vector<DialogCase> &allDialogs()
{
    static const std::vector<DialogCase> all{
        {"stop", plain<StopDlg>},
        {"back", plain<BackApplicationDlg>},
        {"exit", plain<CloseApplicationDlg>},
        {"completion", plain<CompletionMsg>},
        {"message", [](QWidget *parent) { return makeMessage(parent, false); }},
        {"question", [](QWidget *parent) { return makeMessage(parent, true); }},
        {"advanced, JPEG", [](QWidget *parent) { return makeAdvanced(parent, AdvancedRepairDlg::jpegText()); }},
        {"advanced, HEIC",
         [](QWidget *parent) { return makeAdvanced(parent, AdvancedRepairDlg::heicText("standard_selfie")); }},
        {"reference", [](QWidget *parent) { return makeReference(parent, false); }},
        {"reference with sample", [](QWidget *parent) { return makeReference(parent, true); }},
        {"folder",
         [](QWidget *parent) {
             auto dialog = std::make_unique<FolderExist>(parent);
             dialog->Init("RepairedFiles", "Copy(1)_RepairedFiles");
             return dialog;
         }},
        {"file, one of one", [](QWidget *parent) { return makeFile(parent, 1); }},
        {"file, one of many", [](QWidget *parent) { return makeFile(parent, 2); }},
        {"about", plain<AboutDlg>},
        {"minor update", plain<QMinorUpdate>},
        {"major update", plain<QMajorUpdate>},
        {"download", plain<QDownloadApp>},
        {"saved", [](QWidget *parent) { return std::make_unique<SavingFinishDlg>(parent, "/media/card/out"); }},
        {"saved in part",
         [](QWidget *parent) {
             SavingReport report;
             report.shortfall = "14 of 17 files were saved.";
             for (int i = 1; i <= 3; ++i)
                 report.problems << QString("IMG_000%1.jpg: '/media/card/out/RepairedFiles/IMG_000%1.jpg': "
                                            "the disk is full")
                                        .arg(i);
             report.note = "The saved photos lack the camera's data (date, place, orientation, colours). To save them "
                           "with these, choose \"Put the camera's data back\" in the File menu first.";
             return std::make_unique<SavingFinishDlg>(parent, "/media/card/out", report);
         }},
    };
    return all;
}

std::unique_ptr<FramelessDialog> makeDialog(const QString &name, QWidget *parent)
{
    for (const DialogCase &one : allDialogs())
        if (name == one.name) return one.make(parent);
    return nullptr;
}
