#include "tests/shell/translationfile.h"

#include <QDataStream>
#include <QIODevice>

namespace {

// What Qt's translation files begin with.
constexpr char magic[] = "\x3c\xb8\x64\x18\xca\xef\x9c\x95\xcd\x21\x1c\xbf\x60\xa1\xbd\xdd";

enum Section : quint8 { Hashes = 0x42, Messages = 0x69 };
enum MessageTag : quint8 { End = 1, Translation = 3 };

/// The hash of System V's object files.
quint32 elfHash(const QByteArray& text)
{
    quint32 hash = 0;
    for (const char byte : text) {
        hash = (hash << 4) + static_cast<uchar>(byte);
        const quint32 high = hash & 0xf0000000;
        hash = (hash ^ high >> 24) & ~high;
    }
    return hash ? hash : 1;
}

QByteArray message(const QString& translation)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << quint8(Translation) << quint32(translation.size() * 2);
    for (const QChar character : translation)
        stream << quint16(character.unicode());
    stream << quint8(End);
    return bytes;
}

}

QByteArray translationFile(const QByteArray& sourceText, const QString& translation)
{
    constexpr quint32 firstMessage = 0;
    constexpr quint32 oneHash = 8;
    const QByteArray messages = message(translation);
    QByteArray bytes(magic, 16);
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream << quint8(Hashes) << oneHash << elfHash(sourceText) << firstMessage;
    stream << quint8(Messages) << quint32(messages.size());
    bytes += messages;
    return bytes;
}
