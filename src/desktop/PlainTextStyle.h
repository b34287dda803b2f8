// A style under which labels and tool tips show their words as they are.
#pragma once

#include <QProxyStyle>

/// A folder named "<img src=...>" would else be drawn: the toolkit takes words that look like markup for markup, and loads
/// what they name. Set for the application, the style reaches every label, the toolkit's own and its tool tips included,
/// before anything of it is laid out. No text of the program's holds markup.
class PlainTextStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;
    void polish(QWidget *widget) override;
};
