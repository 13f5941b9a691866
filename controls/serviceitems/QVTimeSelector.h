#pragma once

#include <QLineEdit>
#include <QSize>
#include <QString>
#include <QVariantMap>
#include <QWidget>
#include <functional>

class QLabel;
class QToolButton;

// The spin buttons of one unit: a small pair of arrow buttons, "Up" above
// "Down". Each press (and each repeat while held) raises UpClick or DownClick;
// the pair holds no value of its own, the box beside it does.
class QVTimeSelectorUpDown : public QWidget {
    Q_OBJECT
public:
    explicit QVTimeSelectorUpDown(QWidget* parent = nullptr);

    QToolButton* UpButton() const { return m_up; }
    QToolButton* DownButton() const { return m_down; }

signals:
    void UpClick();
    void DownClick();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* m_up;
    QToolButton* m_down;
};

// The number box of one unit. Besides the line edit's own signals it reports
// every typed character as KeyPress (Enter as 13) before the box takes it, and
// a released mouse button as MouseUp after the box has handled it. Enter is
// consumed by the box, so that it does not travel on to the control or its
// host.
class QVTimeSelectorBox : public QLineEdit {
    Q_OBJECT
public:
    explicit QVTimeSelectorBox(QWidget* parent = nullptr);

    // Width of the frame and inner margins of the box, in pixels: what a box
    // needs beside its text.
    int ChromeWidth() const;

signals:
    void KeyPress(qint16 KeyAscii);
    void MouseUp(qint16 Button, qint16 Shift, float X, float Y);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

// QVTimeSelector: a duration in up to three number boxes with spin buttons,
// for hours, minutes and seconds. UserCanChange chooses the units shown:
//
//   0 hours, minutes, seconds    3 minutes, seconds
//   1 hours, minutes             4 seconds
//   2 hours                      5 minutes
//
// (any other value shows all three and folds nothing). A value held by a unit
// that is not shown is folded into the shown ones (ControlsRearranged).
//
// The kept values (Hours, Minutes, Seconds) and the texts of the boxes are two
// things: a box may hold a fraction ("1.5") after a fold, its kept value is
// that text rounded half to even (2). TimeInSeconds, TimeInMinutes, ShortTime
// and LongTime compute from the boxes, not from the kept values.
//
// Stored properties: "Hours", "Minutes", "Seconds" and "UserCanChange". The
// host keeps them as it likes: WriteProperties() hands them over as a
// QVariantMap keyed by those names, ReadProperties(map) takes them back
// (a missing key reads as 0). PropertyChanged(name) tells the host that a
// stored or computed property has changed and should be saved.
//
// Failures inside a member are shown in the full error box, its source naming
// the member ("QVLTCONTROLS: QVTimeSelector: LongTime: "); the control stays as
// it was at that point.
class QVTimeSelector : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description STORED false)
    Q_PROPERTY(qint32 UserCanChange READ UserCanChange WRITE setUserCanChange)
    Q_PROPERTY(qint32 Hours READ Hours WRITE setHours)
    Q_PROPERTY(qint32 Minutes READ Minutes WRITE setMinutes)
    Q_PROPERTY(qint32 Seconds READ Seconds WRITE setSeconds)
    Q_PROPERTY(qint32 TimeInSeconds READ TimeInSeconds WRITE setTimeInSeconds
                   STORED false DESIGNABLE false)
    Q_PROPERTY(qint32 TimeInMinutes READ TimeInMinutes WRITE setTimeInMinutes
                   STORED false DESIGNABLE false)
    Q_PROPERTY(QString ShortTime READ ShortTime WRITE setShortTime STORED false DESIGNABLE false)
    Q_PROPERTY(QString LongTime READ LongTime STORED false DESIGNABLE false)

public:
    // UserControl_Initialize: builds the widgets, all boxes "0", mode 0.
    explicit QVTimeSelector(QWidget* parent = nullptr);
    // UserControl_Terminate.
    ~QVTimeSelector() override;

    // Always "TimeSelectorControl".
    QString Description() const;

    qint32 UserCanChange() const { return m_UserCanChange; }
    void setUserCanChange(qint32 New_UserCanChange);

    // The kept values of the boxes.
    qint32 Hours() const { return m_Hours; }
    void setHours(qint32 New_Hours);
    qint32 Minutes() const { return m_Minutes; }
    void setMinutes(qint32 New_Minutes);
    qint32 Seconds() const { return m_Seconds; }
    void setSeconds(qint32 New_Seconds);

    // hours box * 3600 + minutes box * 60 + seconds box, rounded. Setting shows
    // whole hours, minutes and seconds; 1 to 60 seconds show as 0, 0, 0.
    qint32 TimeInSeconds() const;
    void setTimeInSeconds(qint32 New_TimeInSeconds);
    // Reading may add 1 to the seconds box (when its rounded value modulo 60 is
    // 31 or more). Setting clears all three boxes; the value is not shown.
    qint32 TimeInMinutes() const;
    void setTimeInMinutes(qint32 New_TimeInMinutes);
    // "1 hr 1 min 1 sec", trimmed; "" for no time.
    QString ShortTime() const;
    void setShortTime(const QString& New_ShortTime);
    // "1 hour 1 minute 1 second ", untrimmed.
    QString LongTime() const;

    // The seconds of a short time text ("2 hrs 5 mins" is 7500); changes
    // nothing on screen.
    qint32 ConvertTimeToSeconds(const QString& strShortTime) const;

    // Stored properties (UserControl_ReadProperties / UserControl_WriteProperties).
    void ReadProperties(const QVariantMap& PropBag);
    QVariantMap WriteProperties() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // After every layout of the control.
    void Resized();
    // After a box took a new numeric text.
    void Changed();
    // Enter was pressed in one of the boxes.
    void EnterButtonPressed();
    // The container's notice that a property has a new value to store.
    void PropertyChanged(const QString& PropertyName);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void txtHours_Change();
    void txtMinutes_Change();
    void txtSeconds_Change();
    void txtHours_KeyPress(qint16 KeyAscii);
    void txtMinutes_KeyPress(qint16 KeyAscii);
    void txtSeconds_KeyPress(qint16 KeyAscii);
    void txtHours_MouseUp(qint16 Button, qint16 Shift, float X, float Y);
    void txtMinutes_MouseUp(qint16 Button, qint16 Shift, float X, float Y);
    void txtSeconds_MouseUp(qint16 Button, qint16 Shift, float X, float Y);
    void udHours_UpClick();
    void udHours_DownClick();
    void udMinutes_UpClick();
    void udMinutes_DownClick();
    void udSeconds_UpClick();
    void udSeconds_DownClick();

private:
    friend class tst_QVTimeSelector;

    // The widgets and kept value of one unit.
    struct Unit {
        QVTimeSelectorUpDown* ud;
        QVTimeSelectorBox* txt;
        QLabel* lblCaption;
        qint32* kept;
    };

    void UserControl_Resize();
    void UserControl_KeyPress(qint16 KeyAscii);
    void ControlsRearranged();
    void ControlsRearrangedForMode();
    void FoldSecondsIntoMinutes(double dblSeconds);

    void BoxChange(Unit& unit, const char* pszMember);
    void BoxKeyPress(const char* pszMember, qint16 KeyAscii);
    void BoxMouseUp(Unit& unit, const char* pszMember, qint16 Button, qint16 Shift, float X,
                    float Y);
    void SpinUp(Unit& unit, const char* pszMember);
    void SpinDown(Unit& unit, const char* pszMember);
    bool UnitShown(const Unit& unit) const;
    void MarkChanged(const char* pszPropertyName);

    // A box's text as a number, and rounded half to even.
    static double BoxValue(const QLineEdit* txt);
    static qint32 BoxRounded(const QLineEdit* txt);
    // Sets the box's text to its value plus dblAmount, as a decimal text.
    static void AddToBox(QLineEdit* txt, double dblAmount);
    static void ShowInBox(QLineEdit* txt, qint32 lngValue);

    // Reads a short time text ("2 hrs 5 mins") and hands each unit it finds,
    // in the order found, to fnSet: 'h', 'm' or 's' with its number.
    static void ParseShortTime(const QString& strShortTime,
                               const std::function<void(char chUnit, qint32 lngValue)>& fnSet);
    // The first run of digits of strData, negative when "-" stands before it;
    // 0 when there are none.
    static qint32 GetNumberPart(const QString& strData);
    QString TimeText(bool blnLong) const;

    QVTimeSelectorBox* txtHours;
    QVTimeSelectorBox* txtMinutes;
    QVTimeSelectorBox* txtSeconds;
    QVTimeSelectorUpDown* udHours;
    QVTimeSelectorUpDown* udMinutes;
    QVTimeSelectorUpDown* udSeconds;
    QLabel* lblCaptionHours;
    QLabel* lblCaptionMinutes;
    QLabel* lblCaptionSeconds;
    QLabel* lblReSize;

    Unit m_unitHours{};
    Unit m_unitMinutes{};
    Unit m_unitSeconds{};

    qint32 m_Hours = 0;
    qint32 m_Minutes = 0;
    qint32 m_Seconds = 0;
    qint32 m_UserCanChange = 0;
    // The last values set through TimeInSeconds and TimeInMinutes; the getters
    // compute from the boxes instead.
    qint32 lngTimeInSeconds = 0;
    qint32 lngTimeInMinutes = 0;

    QSize m_sizeArranged;
    bool m_blnArranging = false;
};
