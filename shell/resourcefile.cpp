#include "shell/resourcefile.h"

#include <QFile>
#include <QtEndian>

namespace {

/// Reads the format of Qt's resource compiler, versions 1 to 3. All numbers are big-endian.
class ResourceTables {
public:
    explicit ResourceTables(QByteArrayView file)
        : bytes(file)
    {
    }

    [[nodiscard]] bool areWhole() const
    {
        constexpr qint64 headerSize = 20;
        if (!bytes.startsWith("qres") || bytes.size() < headerSize)
            return false;
        // A folder's children are contiguous, somewhere after it.
        qint64 known = 1;
        for (qint64 node = 0; node < known; ++node) {
            if (!holds(nodeAt(node), nodeSize()) || !holdsName(node))
                return false;
            if (!isFolder(node)) {
                if (!holdsData(node))
                    return false;
                continue;
            }
            const qint64 first = number<quint32>(nodeAt(node) + 10);
            const qint64 end = first + number<quint32>(nodeAt(node) + 6);
            if (first <= node)
                return false;
            known = qMax(known, end);
            if (!holds(nodeAt(0), known * nodeSize()))
                return false;
        }
        return true;
    }

private:
    template <typename Number> [[nodiscard]] qint64 number(qint64 place) const
    {
        return qFromBigEndian<Number>(bytes.data() + place);
    }
    [[nodiscard]] bool holds(qint64 place, qint64 size) const
    {
        return place + size <= bytes.size();
    }
    [[nodiscard]] qint64 nodeSize() const { return number<quint32>(4) == 1 ? 14 : 22; }
    [[nodiscard]] qint64 nodeAt(qint64 node) const
    {
        return number<quint32>(8) + node * nodeSize();
    }
    [[nodiscard]] bool isFolder(qint64 node) const
    {
        constexpr qint64 folderFlag = 2;
        return number<quint16>(nodeAt(node) + 4) & folderFlag;
    }
    [[nodiscard]] bool holdsName(qint64 node) const
    {
        constexpr qint64 lengthAndHash = 6;
        const qint64 name = number<quint32>(16) + number<quint32>(nodeAt(node));
        // The root has none.
        return node == 0
            || (holds(name, lengthAndHash)
                && holds(name + lengthAndHash, 2 * number<quint16>(name)));
    }
    [[nodiscard]] bool holdsData(qint64 node) const
    {
        const qint64 data = number<quint32>(12) + number<quint32>(nodeAt(node) + 10);
        return holds(data, 4) && holds(data + 4, number<quint32>(data));
    }

    QByteArrayView bytes;
};

}

bool isWholeResource(QByteArrayView bytes)
{
    return ResourceTables(bytes).areWhole();
}

bool isWholeResourceFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return false;
    const uchar* bytes = file.map(0, file.size());
    return bytes && isWholeResource(QByteArrayView(bytes, file.size()));
}
