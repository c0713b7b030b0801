#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

class QEvent;
class QWindow;

namespace zentab::app {

/// Keeps the user's input away from the windows as long as it lives, but for Escape and for buttons
/// that end a wait. Keys reach their windows afterwards; what the pointer did is forgotten.
class HeldInput : public QObject {
  Q_OBJECT

 public:
  /// The name of the buttons that work all the same.
  static constexpr const char* kGiveUpButton = "GiveUp";

  HeldInput();
  ~HeldInput() override;

 Q_SIGNALS:
  void EscapePressed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct HeldKey {
    QPointer<QWindow> window;
    std::unique_ptr<QEvent> key;
  };
  std::vector<HeldKey> keys_;
};

}  // namespace zentab::app
