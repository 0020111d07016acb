#pragma once

#include "tests/desktop/harness/palettelayout.h"
#include "tests/desktop/matrix/matrixtest.h"

/// Base of the tests of the board over the live desktop, at the scale that the environment variable
/// KORVEL_SCALE tells. Positions are in device pixels of a 1280 x 800 screen at every scale.
class BoardTest : public MatrixTest {
    Q_OBJECT

protected:
    /// Places that the palette reaches at no scale.
    static constexpr QRect Canvas{40, 40, 400, 300};
    static constexpr QPoint Away{20, 780};
    static inline const QColor Paper{40, 90, 200};

    void furnish() override;
    void clearAway() override;

    [[nodiscard]] static qreal scale();
    /// The board, as Program starts it.
    [[nodiscard]] static Launch board();
    /// The palette with its tab strip.
    [[nodiscard]] PaletteLayout palette() const;
    /// On the palette, in its logical coordinates: the tab of a page, counted from 0.
    [[nodiscard]] static QPointF tab(int page) { return {40 + (page + 0.5) * 126, 104}; }
    static constexpr QPointF FreehandButton{57, 53};
    static constexpr QPointF ShapeButton{79, 53};
    static constexpr QPointF ShapeBox{120, 46};
    static constexpr QPointF ShutterHandle{20, 68};

    /// Whether the board is there and has the keyboard.
    [[nodiscard]] bool isReady(const Program& program) const;
    /// Whether the palette is at its full opacity.
    [[nodiscard]] bool isBright() const;
    /// Goes to the palette and waits until it has come back.
    [[nodiscard]] bool wakePalette() const;

    /// On the page of the shapes.
    void clickTab(int page) const { desktop->pointer.click(palette().at(tab(page))); }
    /// @param box  where the list of shapes opens from, on the screen
    [[nodiscard]] bool chooseShape(QPoint box, int entry, const Program& program) const;
    /// What was drawn and its surroundings, once they no longer change.
    [[nodiscard]] QImage pictureAround(QRect drawn) const
    {
        return settledPicture().copy(drawn.adjusted(-30, -30, 30, 30));
    }

    [[nodiscard]] QColor colourAt(QPoint point) const { return desktop->screen.colourAt(point); }
    /// The screen without the palette.
    [[nodiscard]] QImage drawing() const;

    /// A window of another program, as large as the screen: what lies behind all windows is the
    /// compositor's to paint.
    std::optional<ClientWindow> paper;
};
