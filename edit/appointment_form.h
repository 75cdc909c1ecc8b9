// The edit dialog's form, as a table for each kind: its rows, and the controls that lie over them.
#pragma once

#include "platform/geometry.h"
#include "store/item_kind.h"

#include <span>
#include <string_view>

namespace tavo {

constexpr int kFormWidth = 240;
// The label column is left of this.
constexpr int kValueLeft = 65;
constexpr int kRowHeight = 26;     // with the rule at its bottom
constexpr int kControlHeight = 25; // covers the row down to the rule

// One control: it lies over its value, and is shown when its row is tapped at or right of TapLeft.
struct FormField {
    int Control = 0;
    int TapLeft = kValueLeft;
    int Left = kValueLeft;
    int Width = 165;
    int Height = kControlHeight;
};

struct FormRow {
    int Label = 0; // 0: the row belongs to the label above it
    std::span<const FormField> Fields;
};

struct AppointmentForm {
    int Top = 0; // of row 0
    std::u16string_view StartLabel;
    std::u16string_view EndLabel;
    std::u16string_view TimePicture; // of its time rows
    std::span<const FormRow> Rows;

    // In pixels of the dialog.
    Rect RowBounds(int row) const;
    Rect FieldBounds(int row, const FormField& field) const;
    // The row at this height, counted towards zero: what lies above row 0 is row 0 too. -1 below the last one.
    int RowAt(int y) const;
    // The field of the row that a tap at x means; null in the label column.
    static const FormField* FieldAt(const FormRow& row, int x);
};

const AppointmentForm& FormOfKind(ItemKind kind);

} // namespace tavo
