#include "update/UpdateSignature.h"

#include "desktop/LinkFile.h"

#include <QCryptographicHash>
#include <QFile>

#include <memory>
#include <openssl/evp.h>

namespace {

constexpr int kKeyBytes = 32;
constexpr int kSignatureBytes = 64;

const unsigned char *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

bool verify(const QByteArray &text, const QByteArray &signature, const QByteArray &key)
{
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> maker(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytesOf(key), size_t(key.size())), EVP_PKEY_free);
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    return maker && context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, maker.get()) == 1
        && EVP_DigestVerify(context.get(), bytesOf(signature), size_t(signature.size()), bytesOf(text),
                            size_t(text.size()))
        == 1;
}

} // namespace

QByteArray updateKey()
{
    const QByteArray text = linkFile::text(QStringLiteral("UpdateKey")).trimmed().toLatin1();
    const auto key = QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    return key && key.decoded.size() == kKeyBytes ? key.decoded : QByteArray();
}

QByteArray signedText(const QString &version, const QByteArray &sha512)
{
    return "Kesmira update\n" + version.toLatin1() + '\n' + sha512.toHex() + '\n';
}

bool isSignedUpdate(const QString &path, const QString &version, const QByteArray &signature, const QByteArray &key)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha512);
    return key.size() == kKeyBytes && signature.size() == kSignatureBytes && file.open(QIODevice::ReadOnly)
        && hash.addData(&file) && verify(signedText(version, hash.result()), signature, key);
}
