#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <QByteArrayList>
#include <QByteArrayView>

/// How one window manager is started on a server without hardware: a row of the table.
struct ManagerRecipe {
    QByteArray name; ///< as in the names of tests
    QByteArray program; ///< its path; empty where none is to run
    QByteArrayList arguments = {};
    bool needsBus = false; ///< a message bus of its own; started without one, it ends at once
    Environment settings = {}; ///< files by their paths in the home, with what they hold
    Environment environment = {}; ///< on top of the home's
    QByteArrayList desktopCommand =
        {}; ///< switches to the virtual desktop whose name, counted from
    ///< 1, follows; by message to the root window if empty
};

/// The row of this name; null if there is none.
[[nodiscard]] const ManagerRecipe* managerRecipe(QByteArrayView name);
