#pragma once
// The panel beside the canvas that describes the highlighted planet: its name and what lives
// there, how advanced and how friendly it is, and its energy.

#include <QFrame>
#include <cstdint>

class QLabel;

namespace orr::ui {

class InfoPanel : public QFrame {
    Q_OBJECT
  public:
    explicit InfoPanel(QWidget* parent = nullptr);

    // label: the planet's own name, or "Planet 3" when it has none.
    void showPlanet(const QString& label, std::int32_t attributes);

    // The text if it fits the label's width in the label's font; otherwise the longest start of
    // it followed by "..." that fits, or an empty text when not even "..." fits.
    static QString FitName(const QLabel* label, const QString& text);

    QLabel* lblPName;
    QLabel* lblInh;
    QLabel* lblAdv;
    QLabel* lblAtt;
    QLabel* lblEnr;
    QFrame* lnSep;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QString fullName_;  // kept so a wider panel can show more of it
};

}  // namespace orr::ui
