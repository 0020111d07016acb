#pragma once

#include "pen/pentoolbar.h"
#include "tests/pen/canvas.h"
#include "tests/support/images.h"

#include <QComboBox>

/// What the benches share.
namespace Bench {

/// Frame and palette, both shown.
struct Tool {
    [[nodiscard]] bool show()
    {
        canvas.frame.setToolbar(palette);
        const bool exposed = canvas.show();
        palette->start();
        palette->setFadingEnabled(false);
        QCoreApplication::processEvents();
        return exposed;
    }
    [[nodiscard]] QComboBox* box(qsizetype number) const
    {
        return palette->findChildren<QComboBox*>().at(number);
    }

    TestSupport::Images images;
    PenTest::Canvas canvas{5};
    /// Owned by the frame.
    VcAction::Toolbar::PenToolbar* palette = new VcAction::Toolbar::PenToolbar(&canvas.frame);
};

}
