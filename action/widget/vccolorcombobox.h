#pragma once

#include "action/widget/vccombobox.h"

#include <QColor>

namespace VcAction::Toolbar {
class ActionToolbar;
}

namespace VcAction::Widget {

/// A palette's colour chooser: preset colours, at most one custom colour, and last an entry that
/// opens the colour dialog. Tells every chosen colour; what it is for, others decide.
///
/// The entries keep their colour (QColor) under Qt::UserRole; that of the dialog's entry is
/// invalid.
class VcColorComboBox : public VcComboBox {
    Q_OBJECT

public:
    /// @param color, name  the first preset
    /// @param palette  the palette that must not fade while the dialog is open; may be null
    VcColorComboBox(QColor color, QString name, QWidget* parent,
                    VcAction::Toolbar::ActionToolbar* palette);

    /// Clears the box and leaves only the dialog's entry.
    void addCustomItem();
    /// Has the user choose a colour in the dialog.
    void chooseCustomColor();

signals:
    void colorChosen(QColor color);

public slots:
    void updateColor(int index);
    /// Adds a preset behind those that are there.
    void addColor(QColor color, QString name);
    /// Moves the selection round, never to the dialog's entry.
    /// @param step  entries to move by, down the list if positive
    void increment(int step);
    /// Selects the preset of this colour, or makes it the custom colour.
    void chooseCustomColor(QColor color);

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QIcon swatch(const QColor& color) const;
    void setCustomEntry(const QColor& color);
    void openColorDialog();

    VcAction::Toolbar::ActionToolbar* toolbar;
    int lastIndex = 0;
    bool hasCustomItem = false;
    int wheelRemainder = 0;
};

}
