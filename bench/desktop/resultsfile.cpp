#include "bench/desktop/resultsfile.h"

#include <QFile>

namespace Bench {

namespace {

const QByteArray Heading = "\n## ";

}

ResultsFile::ResultsFile(const QString& filePath, const QList<QByteArray>& rows)
    : path(filePath)
    , order(rows)
    , sections(rows.size())
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return;
    const QByteArray text = file.readAll();
    qsizetype start = text.indexOf(Heading);
    introduction = text.left(start);
    while (start >= 0) {
        const qsizetype next = text.indexOf(Heading, start + Heading.size());
        const QByteArray section = text.mid(start, next < 0 ? -1 : next - start);
        const qsizetype nameEnd = section.indexOf('\n', Heading.size());
        const QByteArray name = section.mid(Heading.size(), nameEnd - Heading.size());
        if (order.contains(name))
            setSection(name, section.mid(nameEnd).trimmed());
        else
            writtenByHand += section.trimmed().prepend('\n') + '\n';
        start = next;
    }
}

void ResultsFile::setSection(const QByteArray& row, const QByteArray& text)
{
    sections[order.indexOf(row)] = text;
}

bool ResultsFile::save() const
{
    QByteArray text = introduction.trimmed() + '\n';
    for (qsizetype place = 0; place < order.size(); ++place) {
        if (!sections.at(place).isEmpty())
            text += Heading + order.at(place) + "\n\n" + sections.at(place).trimmed() + '\n';
    }
    text += writtenByHand;
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(text) == text.size();
}

}
