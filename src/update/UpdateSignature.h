// Whether an archive is one that the maker has signed as this version.
#pragma once

#include <QByteArray>
#include <QString>

/// The maker's ed25519 public key, 32 bytes: the base64 text under "UpdateKey" of the link file. Empty if there is none or
/// it is no key; then nothing is downloaded.
QByteArray updateKey();

/// The bytes that are signed: "Kesmira update", the version and the archive's SHA-512 in hexadecimal, each with a line feed
/// behind it. The version is part of them, so that an archive signed once can't be offered again as a later version.
QByteArray signedText(const QString &version, const QByteArray &sha512);

/// True if `signature` (64 bytes) is the one of the archive at `path` as `version` by the holder of `key`. Reads the whole
/// archive; may run on any thread.
bool isSignedUpdate(const QString &path, const QString &version, const QByteArray &signature, const QByteArray &key);
