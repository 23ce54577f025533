// The box of a date: it takes a date as people write it, and opens a calendar. Both speak the program's language; the
// order of day and month is the locale's.
#pragma once

#include <QDate>
#include <QLineEdit>

class DateBox final : public QLineEdit {
public:
    DateBox(QWidget *parent, int id);

    QDate Date() const { return Shown; }
    // Between FirstDate and LastDate.
    void SetDate(const QDate &date);
    // False while what is typed is no date.
    bool Reads() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int Id;
    QDate Shown;
    QDate Base; // what a text that says less than a date is about
    class QFrame *Popup = nullptr;
    class QCalendarWidget *Calendar = nullptr;

    QRect DropBox() const;
    void OpenCalendar();
    void Take(const QDate &date);
    void ReadTyped();
};
