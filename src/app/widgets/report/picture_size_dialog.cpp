#include "app/widgets/report/picture_size_dialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

#include "app/widgets/accessible_names.h"
#include "app/widgets/dialog_buttons.h"

namespace zentab::app {

PictureSizeDialog::PictureSizeDialog(const PictureSizeQuestion& question, const Session& session,
                                     QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("FormPictureSize"));
  setWindowTitle(question.title);
  const texts::OutputTexts& texts = session.texts.output;
  const auto& [millimetres, dots] = question.size;
  auto* const form = new QFormLayout;
  width_ = Add(*form, {"Field_width", texts.width, " mm", kShortestSide, kLongestSide,
                       qRound(millimetres.width())});
  height_ = Add(*form, {"Field_height", texts.height, " mm", kShortestSide, kLongestSide,
                        qRound(millimetres.height())});
  dots_ = Add(*form, {"Field_resolution", texts.resolution, " dpi", kFewestDots, kMostDots, dots});
  form->setRowVisible(dots_, question.hasDots);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(MakeDialogButtons(session, *this));
  width_->selectAll();
}

QSpinBox* PictureSizeDialog::Add(QFormLayout& form, const Field& field) {
  auto* const box = new QSpinBox(this);
  box->setObjectName(QLatin1String(field.name));
  box->setRange(field.least, field.most);
  box->setSuffix(QLatin1String(field.unit));
  box->setValue(field.number);
  auto* const label = new QLabel(QString::fromStdString(field.label), this);
  label->setBuddy(box);
  box->setAccessibleName(PlainCaption(label->text()));
  box->setAccessibleDescription(windowTitle());
  form.addRow(label, box);
  return box;
}

PictureSize PictureSizeDialog::Size() const {
  return {QSizeF(width_->value(), height_->value()), dots_->value()};
}

}  // namespace zentab::app
