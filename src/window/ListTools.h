// What stands beside the file list: the two ways to take files off it again, and a line that names files that were not
// taken.
#pragma once

#include <QObject>

class QLabel;
class QPushButton;
class QWidget;

class ListTools : public QObject
{
    Q_OBJECT

public:
    /// Builds the widgets, hidden, on the first page.
    explicit ListTools(QWidget *page);

    void retranslate();
    /// Puts the buttons side by side from `left`, as wide as their words ask for.
    void place(int left);
    void setShown(bool shown);
    /// One line, as long as there is room, whole as its tool tip: `why` and the names of `files`. Without files the line goes.
    void showRefused(const QString &why, const QStringList &files);
    /// Any other line in its place; an empty one takes it away.
    void showLine(const QString &line);

    QPushButton *removeFile = nullptr;   ///< the current row
    QPushButton *removeTicked = nullptr; ///< each row with a tick

private:
    QLabel *m_note = nullptr;
};
