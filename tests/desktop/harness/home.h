#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <QStringList>
#include <QTemporaryDir>

/// A user's folders of their own, so that nothing of the real user is read or written.
class Home {
public:
    Home();
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    ~Home();

    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("home")); }
    [[nodiscard]] QString configPath() const { return path() + QStringLiteral("/.config"); }
    [[nodiscard]] QString settingsFile() const;

    /// Every file and folder in the home, relative to it, in order of name.
    [[nodiscard]] QStringList contents() const;

    /// For whoever runs in this home, on this display: no locale but C, no D-Bus, nothing inherited
    /// but the search paths and the options of sanitizers.
    [[nodiscard]] Environment environment(const QByteArray& display) const;

private:
    QTemporaryDir folder;
};
