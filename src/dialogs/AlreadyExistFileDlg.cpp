#include "dialogs/AlreadyExistFileDlg.h"

#include "app/KesmiraApp.h"
#include "dialogs/ui_AlreadyExistFileDlg.h"

#include <QRegularExpressionValidator>

AlreadyExistFileDlg::AlreadyExistFileDlg(QWidget *parent)
    : FramelessDialog(parent), ui(std::make_unique<Ui::AlreadyExistFileDlgObj>())
{
    ui->setupUi(content());
    titleLabel()->setObjectName("label_3");
    setStripHeight(27);
    const std::pair<QPushButton *, FileAnswer> answers[] = {
        {ui->RenameBtn, FileAnswer::Rename},       {ui->RenameAllBtn, FileAnswer::RenameAll},
        {ui->OverwriteBtn, FileAnswer::Overwrite}, {ui->OverwriteAllBtn, FileAnswer::OverwriteAll},
        {ui->SkipBtn, FileAnswer::Skip},           {ui->SkipAllBtn, FileAnswer::SkipAll},
    };
    for (const auto &[button, answer] : answers)
        connect(button, &QPushButton::clicked, this, [this, given = answer] { answerWith(given); });
    // A name with a slash would lead out of the run folder.
    ui->RenameFileText->setValidator(new QRegularExpressionValidator(QRegularExpression("[^/]*"), this));
    finishSetUp({404, 180}, ui->RenameFileText);
}

AlreadyExistFileDlg::~AlreadyExistFileDlg() = default;

void AlreadyExistFileDlg::InitStart(const QString &name, const QString &proposal)
{
    m_answer = FileAnswer::Closed;
    ui->FileNameText->setText(name);
    ui->FileNameText->setCursorPosition(0);
    ui->RenameFileText->setText(proposal);
    ui->RenameFileText->selectAll();
    const bool many = pApp->nResultCounter != 1;
    for (QPushButton *button : {ui->RenameAllBtn, ui->OverwriteAllBtn, ui->SkipAllBtn}) button->setVisible(many);
    SetFixedSizeWidget();
}

QString AlreadyExistFileDlg::newName() const
{
    return ui->RenameFileText->text();
}

void AlreadyExistFileDlg::retranslate()
{
    ui->retranslateUi(content());
    FramelessDialog::retranslate();
}

void AlreadyExistFileDlg::answerWith(FileAnswer answer)
{
    m_answer = answer;
    accept();
}
