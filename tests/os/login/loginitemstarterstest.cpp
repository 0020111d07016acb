#include "os/login/loginitems.h"
#include "tests/os/desktopentry/session.h"
#include "tests/support/testprogram.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <glib.h>

#include <optional>

using namespace TestSupport;

namespace {

/// How a desktop starts programs.
enum class Starter {
    /// dex, on the folders: for desktops without a session manager.
    Dex,
    /// The starter that comes with Openbox, on the folders.
    Openbox,
    /// GLib's launcher, as used by GNOME and others, on each entry.
    GLib,
    /// The generator that makes a service of each entry, as used by GNOME and KDE.
    Systemd,
};

QString openboxStarter()
{
    for (const char* path : {"/usr/lib/x86_64-linux-gnu/openbox-xdg-autostart",
                             "/usr/lib/aarch64-linux-gnu/openbox-xdg-autostart",
                             "/usr/libexec/openbox-xdg-autostart"}) {
        if (QFileInfo::exists(path))
            return path;
    }
    return "package openbox is missing";
}

/// Runs a program to its end.
/// @return  whether it could be started
bool runs(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished();
}

/// Starts what the generator has made services of. Each is one line of words in the quotes that
/// systemd knows: of backslashes, dollar and percent signs there must be none.
bool startServices(const QDir& services)
{
    bool allStart = true;
    for (const QString& service : services.entryList({"*.service"})) {
        const QString text =
            QString::fromStdString(readFile(services.filePath(service).toStdString()));
        const QString line =
            QRegularExpression("ExecStart=:?([^\\\\$%\n]*)\n").match(text).captured(1);
        char** words = nullptr;
        if (!g_shell_parse_argv(qPrintable(line), nullptr, &words, nullptr))
            return false;
        QStringList arguments;
        for (char** word = words; *word; ++word)
            arguments << *word;
        g_strfreev(words);
        const QString program = arguments.takeFirst();
        allStart = runs(program, arguments) && allStart;
    }
    return allStart;
}

bool startSession(Starter starter, const Session& session)
{
    const QString services = QString::fromStdString(session.root() / "services");
    switch (starter) {
    case Starter::Dex:
        return runs("dex", {"--autostart"});
    case Starter::Openbox:
        return runs(openboxStarter(), {});
    case Starter::Systemd:
        return QDir().mkpath(services)
            && runs("/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator",
                    {services, services, services})
            && startServices(services);
    case Starter::GLib:
    default:
        for (const std::string& name : namesIn(session.autostart())) {
            if (!runs("gio", {"launch", QString::fromStdString(session.autostart() / name)}))
                return false;
        }
        return true;
    }
}

/// File names that few programs have.
Paths strangeNames()
{
    Paths names{"painter",
                " painter ",
                "ann's painter",
                "100%",
                "painter%u %%f",
                "%",
                "$HOME",
                "`id`",
                "a\\b\\\\c\\n",
                "two\nlines\r",
                "#painter",
                "a;b&&c||d",
                "[a-z]{b,c}",
                "-n",
                "m\xc3\xa4ler-\xe7\x94\xbb",
                "m\xe4ler",
                "\xff\xfe\xc3",
                std::string(250, 'p')};
    for (char byte = 1; byte < 127; ++byte) {
        if (!g_ascii_isalnum(byte) && byte != '/')
            names.push_back(std::string("a") + byte + 'b');
    }
    for (const char* byte : {"\x7f", "\x80", "\x81", "\x83", "\x88", "\xa0", "\xff"})
        names.push_back(std::string("a") + byte + 'b');
    return names;
}

}

Q_DECLARE_METATYPE(Starter)

/// Login items in the hands of programs that others have written: starters and editors of entries.
class LoginItemStartersTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".?"));
        session.emplace();
    }
    void cleanup() { session.reset(); }
    void everyProgramIsStartedHiddenOrNot_data() { addStarters(); }
    void everyProgramIsStartedHiddenOrNot();
    void whatIsNoProgramIsOpened_data() { addStarters(); }
    void whatIsNoProgramIsOpened();
    void anApplicationIsStartedWithItsArguments_data() { addStarters(); }
    void anApplicationIsStartedWithItsArguments();
    void entriesKeepToTheStandard();
    void anItemThatAnotherProgramEditsKeepsItsPlace();

private:
    static void addStarters();
    /// Makes a program that leaves its own path and its arguments, each with a line end, in a file.
    std::string addSignallingProgram(const std::string& name, const Path& file) const;
    [[nodiscard]] Path signal(std::size_t number) const
    {
        return session->root() / ("started" + std::to_string(number));
    }

    std::optional<Session> session;
};

void LoginItemStartersTest::addStarters()
{
    QTest::addColumn<Starter>("starter");

    QTest::newRow("dex") << Starter::Dex;
    QTest::newRow("Openbox") << Starter::Openbox;
    QTest::newRow("GLib") << Starter::GLib;
    QTest::newRow("systemd") << Starter::Systemd;
}

std::string LoginItemStartersTest::addSignallingProgram(const std::string& name,
                                                        const Path& file) const
{
    const std::string begun = file.native() + ".new";
    return session->addProgram(name,
                               "printf '%s\\n' \"$0\" \"$@\" > '" + begun + "' && mv '" + begun
                                   + "' '" + file.native() + "'\n");
}

void LoginItemStartersTest::everyProgramIsStartedHiddenOrNot()
{
    // given
    QFETCH(Starter, starter);
    const Paths names = strangeNames();
    Paths programs;
    for (const std::string& name : names) {
        programs.push_back(addSignallingProgram(name, signal(programs.size())));
        const bool isHidden = programs.size() % 2 == 0;
        QVERIFY(addLoginItemWithPath(programs.back(), isHidden));
    }

    // when
    QVERIFY(startSession(starter, *session));

    // then
    QCOMPARE(listedPaths(), programs);
    for (std::size_t i = 0; i < programs.size(); ++i) {
        QTRY_VERIFY2(std::filesystem::exists(signal(i)), programs[i].c_str());
        QCOMPARE(readFile(signal(i)), programs[i] + '\n');
    }
}

void LoginItemStartersTest::whatIsNoProgramIsOpened()
{
    // given
    QFETCH(Starter, starter);
    const std::string opener = addSignallingProgram("xdg-open", signal(0));
    const Path file = session->home() / "100% \"mine\".txt";
    writeFile(file, "text");
    QVERIFY(addLoginItemWithPath(file, false));

    // when
    QVERIFY(startSession(starter, *session));

    // then
    QCOMPARE(listedPaths(), Paths{file});
    QTRY_VERIFY(std::filesystem::exists(signal(0)));
    QCOMPARE(readFile(signal(0)), opener + '\n' + file.native() + '\n');
}

void LoginItemStartersTest::anApplicationIsStartedWithItsArguments()
{
    // given
    QFETCH(Starter, starter);
    const std::string program = addSignallingProgram("painter", signal(0));
    const Path application = session->applications() / "painter.desktop";
    writeFile(application, entryText("painter --at \"50%% of \\\\$5\" %U \"\" %c"));
    QVERIFY(addLoginItemWithPath(application, false));

    // when
    QVERIFY(startSession(starter, *session));

    // then
    QCOMPARE(listedPaths(), Paths{application});
    QTRY_VERIFY(std::filesystem::exists(signal(0)));
    QCOMPARE(readFile(signal(0)), program + "\n--at\n50% of $5\n\nPainter\n");
}

void LoginItemStartersTest::entriesKeepToTheStandard()
{
    // given
    for (const std::string& name : strangeNames())
        QVERIFY(addLoginItemWithPath(session->addProgram(name), true));
    QStringList files;
    for (const std::string& name : namesIn(session->autostart()))
        files << QString::fromStdString(session->autostart() / name);

    // when
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start("desktop-file-validate", files);

    // then
    QVERIFY2(validator.waitForFinished(), "package desktop-file-utils");
    QCOMPARE(validator.readAll(), QByteArray());
    QCOMPARE(validator.exitCode(), 0);
}

void LoginItemStartersTest::anItemThatAnotherProgramEditsKeepsItsPlace()
{
    // given
    QVERIFY(addLoginItemWithPath("/bin/sh", true));
    const std::string first = *namesIn(session->autostart()).begin();
    QVERIFY(addLoginItemWithPath("/bin/true", false));
    const LoginItemUrlRef url = allLoginItems()->at(0).URL;

    // when
    QVERIFY(runs("desktop-file-edit",
                 {"--set-comment=Caf\u00e9", "--set-icon=painter",
                  QString::fromStdString(session->autostart() / first)}));

    // then
    QVERIFY(readFile(session->autostart() / first).find("Icon=painter") != std::string::npos);
    QCOMPARE(indexForLoginItemWithURL(url), 0);
    QVERIFY(allLoginItems()->at(0).Hidden);
}

REGISTER_TEST(LoginItemStartersTest, QCoreApplication)
#include "loginitemstarterstest.moc"
