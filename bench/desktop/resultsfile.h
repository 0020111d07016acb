#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace Bench {

/// A Markdown file with one section for each row, and further ones that somebody has written. A
/// session replaces the sections of the rows that it measured; the others stay as they are.
class ResultsFile {
public:
    /// @param order  names of all rows, as their sections are to follow each other
    ResultsFile(const QString& path, const QList<QByteArray>& order);

    void setIntroduction(const QByteArray& text) { introduction = text; }
    /// @param text  without the heading
    void setSection(const QByteArray& row, const QByteArray& text);
    /// False if it cannot be written.
    [[nodiscard]] bool save() const;

private:
    const QString path;
    const QList<QByteArray> order;
    QByteArray introduction;
    QList<QByteArray> sections;
    QByteArray writtenByHand; ///< with their headings
};

}
