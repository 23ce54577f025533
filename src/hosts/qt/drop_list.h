// A box with a list, and a line for a number: the toolkit's own, which change by what is typed or chosen and by nothing
// else.
#pragma once

#include "hosts/qt/number_text.h"
#include <QComboBox>
#include <QLineEdit>

class DropList final : public QComboBox {
public:
    DropList(QWidget *parent, int id, Holds what);

    // Gives the box a line that is typed into.
    void LetType();
    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    int Id;
    Holds What;
    NumberText *Number = nullptr;

    int WidthOfRows() const;
    int RowMeant() const;
};

class NumberLine final : public QLineEdit {
public:
    NumberLine(QWidget *parent, int id);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    NumberText *Number;
};
