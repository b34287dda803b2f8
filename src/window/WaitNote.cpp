#include "window/WaitNote.h"

#include "dialogs/MessageBox.h"

#include <QCoreApplication>

WaitNote::WaitNote() = default;

WaitNote::~WaitNote() = default;

void WaitNote::show()
{
    if (!m_box) {
        const char *words = QT_TRANSLATE_NOOP(
            "Start", "The program that was closed is still wiping its working files. This one starts after that.");
        m_box = std::make_unique<MessageBox>();
        m_box->setPicture(QStringLiteral(":/res/info.png"));
        m_box->setText(QCoreApplication::translate("Start", words));
        m_box->show();
    }
    QCoreApplication::processEvents();
}

void WaitNote::close()
{
    m_box.reset();
}
