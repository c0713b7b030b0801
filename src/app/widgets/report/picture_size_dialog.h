#pragma once

#include <QDialog>

#include "app/session.h"
#include "app/widgets/report/picture_size.h"

class QFormLayout;
class QSpinBox;

namespace zentab::app {

/// Asks how large a picture is to be.
class PictureSizeDialog final : public QDialog {
  Q_OBJECT

 public:
  PictureSizeDialog(const PictureSizeQuestion& question, const Session& session, QWidget* parent);

  [[nodiscard]] PictureSize Size() const;

 private:
  struct Field {
    const char* name;
    const std::string& label;
    const char* unit;
    int least;
    int most;
    int number;
  };
  [[nodiscard]] QSpinBox* Add(QFormLayout& form, const Field& field);

  QSpinBox* width_;
  QSpinBox* height_;
  QSpinBox* dots_;
};

}  // namespace zentab::app
