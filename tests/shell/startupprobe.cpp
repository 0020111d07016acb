#include "shell/norvikapplication.h"

#include <QDir>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

#include <cstdio>
#include <cstring>
#include <memory>

using Helpers::NQt::NorvikApplication;

namespace {

/// Counts the changes of the language that an application object is told of.
class LanguageWatch : public QObject {
public:
    int changes = 0;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange && watched == qApp)
            ++changes;
        return false;
    }
};

std::unique_ptr<NorvikApplication> makeApplication(QSettings& settings, int& argc, char** argv)
{
    const auto asked = [&](const char* word) { return argc > 1 && !std::strcmp(argv[1], word); };
    if (asked("id"))
        return std::make_unique<NorvikApplication>("probe", argc, argv);
    if (asked("flag"))
        return std::make_unique<NorvikApplication>(argc, argv, true);
    return std::make_unique<NorvikApplication>(settings, argc, argv);
}

/// Number of the fonts that were loaded from files.
int loadedFonts()
{
    constexpr int moreThanAnyTestLoads = 100;
    int count = 0;
    for (int id = 0; id < moreThanAnyTestLoads; ++id)
        count += QFontDatabase::applicationFontFamilies(id).isEmpty() ? 0 : 1;
    return count;
}

QJsonObject report()
{
    return {
        {"id", static_cast<QtSingleApplication*>(qApp)->id()},
        {"folder", QDir::currentPath()},
        {"text", QCoreApplication::translate("Any", "Size")},
        {"resources", QJsonArray::fromStringList(QDir(":/probe").entryList())},
        {"fonts", loadedFonts()},
    };
}

}

/// Tells on one line what an application object has found at its start. Argument: "id" or "flag"
/// for the constructors that take no settings.
int main(int argc, char** argv)
{
    LanguageWatch watch;
    QJsonObject found;
    {
        QSettings settings("Varnholt", "Korvel");
        const std::unique_ptr<NorvikApplication> application =
            makeApplication(settings, argc, argv);
        found = report();
        application->installEventFilter(&watch);
    }
    // An installed translator is taken away with its application object, which tells of it.
    found.insert("translators", watch.changes);
    std::puts(QJsonDocument(found).toJson(QJsonDocument::Compact).constData());
    return 0;
}
