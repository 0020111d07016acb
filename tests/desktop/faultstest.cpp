#include "tests/desktop/harness/desktoptest.h"
#include "tests/support/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QRandomGenerator>

#include <X11/keysym.h>

#include <functional>

/// Damaged files and missing folders: whatever is wrong around it, the program starts, draws and
/// ends.
class FaultsTest : public DesktopTest {
    Q_OBJECT

private slots:
    void damagedFilesBesideItAreSurvived_data();
    void damagedFilesBesideItAreSurvived();
    void unusableHomesAreSurvived_data();
    void unusableHomesAreSurvived();
    void unusableSettingsAreSurvived_data();
    void unusableSettingsAreSurvived();

private:
    using Damage = std::function<void(const QDir&)>;

    /// Draws with the program and ends it by key. Tells whether each step did what it should.
    [[nodiscard]] bool isUsable(Program& korvel) const;
    [[nodiscard]] static bool write(const QString& path, const QByteArray& content);
    [[nodiscard]] static QByteArray noise(int size);
    /// Copies the installed program's folder. Tells whether all of it could be copied.
    [[nodiscard]] static bool copyProgram(const QDir& target);
};

Q_DECLARE_METATYPE(std::function<void(const QDir&)>)

bool FaultsTest::isUsable(Program& korvel) const
{
    if (!eventually([&] { return korvel.isReady(); }))
        return false;
    desktop->pointer.drag(line({200, 200}, {400, 300}));
    if (!parkPointer({100, 700}, Qt::yellow)
        || desktop->screen.colourAt({300, 250}) != QColor(Qt::yellow))
        return false;
    desktop->keyboard.strike(XK_Escape);
    return eventually([&] { return korvel.status() == 0; });
}

bool FaultsTest::write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(content) == content.size();
}

QByteArray FaultsTest::noise(int size)
{
    QRandomGenerator sameEachTime(1);
    QByteArray bytes(size, Qt::Uninitialized);
    for (char& byte : bytes)
        byte = static_cast<char>(sameEachTime.bounded(256));
    return bytes;
}

bool FaultsTest::copyProgram(const QDir& target)
{
    const QFileInfo executable(QFile::decodeName(Program::installedExecutable()));
    const QDir source = QFileInfo(executable.canonicalFilePath()).dir();
    bool isComplete = true;
    for (const QString& name : source.entryList(QDir::Files))
        isComplete = QFile::copy(source.filePath(name), target.filePath(name)) && isComplete;
    return isComplete;
}

void FaultsTest::damagedFilesBesideItAreSurvived_data()
{
    QTest::addColumn<Damage>("damage");

    const auto truncateResources = [](qreal share) -> Damage {
        return [share](const QDir& folder) {
            QFile resources(folder.filePath("vellumcraft.rcc"));
            QVERIFY(resources.resize(qRound64(resources.size() * share)));
        };
    };
    const auto add = [](const QString& name, const QByteArray& content) -> Damage {
        return [=](const QDir& folder) { QVERIFY(write(folder.filePath(name), content)); };
    };
    QTest::newRow("no resources") << Damage(
        [](const QDir& folder) { QVERIFY(QFile::remove(folder.filePath("vellumcraft.rcc"))); });
    QTest::newRow("empty resources") << truncateResources(0);
    QTest::newRow("only the head of the resources") << truncateResources(0.001);
    QTest::newRow("a quarter of the resources") << truncateResources(0.25);
    QTest::newRow("half of the resources") << truncateResources(0.5);
    QTest::newRow("nearly all of the resources") << truncateResources(0.99);
    QTest::newRow("all but the resources' last bytes") << truncateResources(0.9999);
    QTest::newRow("noise for resources") << add("vellumcraft.rcc", noise(50'000));
    QTest::newRow("noise behind the resources' signature")
        << add("vellumcraft.rcc", "qres" + QByteArray(3, 0) + '\3' + noise(50'000));
    QTest::newRow("a folder for resources") << Damage([](const QDir& folder) {
        QVERIFY(QFile::remove(folder.filePath("vellumcraft.rcc")));
        QVERIFY(folder.mkdir("vellumcraft.rcc"));
    });
    QTest::newRow("noise for a font") << add("noise.ttf", noise(50'000));
    QTest::newRow("an empty font") << add("empty.otf", {});
    QTest::newRow("noise behind a font's signature")
        << add("noise.ttf", QByteArray("\0\1\0\0\0\20", 6) + noise(50'000));
    QTest::newRow("noise for a translation") << add("vellumcraft.qm", noise(5'000));
    QTest::newRow("noise behind a translation's signature") << add(
        "vellumcraft.qm", QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd") + noise(5'000));
    QTest::newRow("an empty translation") << add("vellumcraft.qm", {});
}

void FaultsTest::damagedFilesBesideItAreSurvived()
{
    // given
    QFETCH(Damage, damage);
    const QTemporaryDir folder;
    QVERIFY(copyProgram(QDir(folder.path())));
    damage(QDir(folder.path()));

    // when
    Program korvel(*desktop, {.executable = QFile::encodeName(folder.filePath("korvel"))});

    // then
    QVERIFY(isUsable(korvel));
}

void FaultsTest::unusableHomesAreSurvived_data()
{
    QTest::addColumn<Environment>("environment");

    QTest::newRow("a home that does not exist") << Environment{{"HOME", "/nowhere/at/all"}};
    QTest::newRow("a home in which nothing can be made") << Environment{{"HOME", "/proc"}};
    QTest::newRow("a home that is a file") << Environment{{"HOME", "/dev/null"}};
    QTest::newRow("an empty name") << Environment{{"HOME", ""}};
    QTest::newRow("a settings folder that is a file")
        << Environment{{"XDG_CONFIG_HOME", "/dev/null"}};
    QTest::newRow("a runtime folder that does not exist")
        << Environment{{"XDG_RUNTIME_DIR", "/nowhere"}};
}

void FaultsTest::unusableHomesAreSurvived()
{
    // given
    QFETCH(Environment, environment);

    // when
    Program korvel(*desktop,
                   environment.contains("HOME")
                       ? Launch{.environment = environment, .unset = {"XDG_CONFIG_HOME"}}
                       : Launch{.environment = environment});

    // then
    QVERIFY(isUsable(korvel));
}

void FaultsTest::unusableSettingsAreSurvived_data()
{
    QTest::addColumn<Damage>("damage");

    QTest::newRow("a folder in the file's place") << Damage(
        [](const QDir& config) { QVERIFY(config.mkpath("Varnholt/Korvel.conf/deeper")); });
    QTest::newRow("a file in the folder's place") << Damage(
        [](const QDir& config) { QVERIFY(write(config.filePath("Varnholt"), "no folder")); });
    QTest::newRow("noise in the file") << Damage([](const QDir& config) {
        QVERIFY(config.mkpath("Varnholt"));
        QVERIFY(write(config.filePath("Varnholt/Korvel.conf"), noise(5'000)));
    });
    QTest::newRow("a link that leads nowhere") << Damage([](const QDir& config) {
        QVERIFY(config.mkpath("Varnholt"));
        QVERIFY(QFile::link("/nowhere/at/all", config.filePath("Varnholt/Korvel.conf")));
    });
}

void FaultsTest::unusableSettingsAreSurvived()
{
    // given
    QFETCH(Damage, damage);
    damage(QDir(desktop->home.configPath()));

    // when
    Program korvel(*desktop);

    // then
    QVERIFY(isUsable(korvel));
}

REGISTER_TEST(FaultsTest, QCoreApplication)
#include "faultstest.moc"
