// The link and settings files: addresses and labels that the deployment supplies, and the few values that are kept beside
// them. The shipped file is only ever read; what is written goes to the user's own copy of it.
#pragma once

#include <QString>
#include <QVariant>

namespace linkFile {

/// Value under `key` of the settings file whose shipped path is `path`: that of the user's own copy, else the shipped
/// one; invalid where neither has it or `path` is empty.
QVariant value(const QString &path, const QString &key);
/// Text under `key` of `pApp->strLinkPlistPath`, "" if there is none.
QString text(const QString &key);
/// Text under `base` + "_EN", "_DE" and so on by the language whose flag is set; "" without a flag or without the key.
QString languageText(const QString &base);
/// Keeps `value` in the user's own copy of the file at `path`, which holds nothing but what was kept so.
/// False if it can't be written.
bool store(const QString &path, const QString &key, const QVariant &value);

} // namespace linkFile
