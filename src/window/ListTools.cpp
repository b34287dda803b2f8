#include "window/ListTools.h"

#include <QLabel>
#include <QPushButton>

ListTools::ListTools(QWidget *page) : QObject(page)
{
    removeFile = new QPushButton(page);
    removeFile->setObjectName(QStringLiteral("removeFileBtn"));
    removeTicked = new QPushButton(page);
    removeTicked->setObjectName(QStringLiteral("removeTickedBtn"));
    m_note = new QLabel(page);
    m_note->setObjectName(QStringLiteral("listNote"));
    m_note->setGeometry(25, 204, 730, 20);
    m_note->hide();
    setShown(false);
    retranslate();
}

void ListTools::retranslate()
{
    removeFile->setText(tr("Remove file"));
    removeFile->setToolTip(tr("Takes the chosen file off the list. The file itself stays where it is."));
    removeTicked->setText(tr("Remove ticked"));
    removeTicked->setToolTip(tr("Takes the ticked files off the list. The files themselves stay where they are."));
}

void ListTools::place(int left)
{
    for (QPushButton *button : {removeFile, removeTicked}) {
        button->setGeometry(left, 546, button->sizeHint().width(), 32);
        left = button->geometry().right() + 9;
    }
}

void ListTools::setShown(bool shown)
{
    removeFile->setVisible(shown);
    removeTicked->setVisible(shown);
}

void ListTools::showRefused(const QString &why, const QStringList &files)
{
    showLine(files.isEmpty() ? QString() : why + QLatin1Char(' ') + files.join(QStringLiteral(", ")));
    m_note->setToolTip(why + QLatin1Char('\n') + files.mid(0, 40).join(QLatin1Char('\n')));
}

void ListTools::showLine(const QString &line)
{
    m_note->setText(m_note->fontMetrics().elidedText(line, Qt::ElideRight, m_note->width()));
    m_note->setToolTip(line);
    m_note->setVisible(!line.isEmpty());
}
