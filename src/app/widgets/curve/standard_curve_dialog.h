#pragma once

#include <functional>

#include "app/widgets/curve/curve_dialog.h"

class QComboBox;
class QLabel;

namespace zentab::app {

class EquationField;
class FormFields;

/// Makes a table of a characteristic.
class StandardCurveDialog final : public CurveDialog {
  Q_OBJECT

 public:
  /// Keeps what KeepOwnConstants has put into a form.
  using KeepOwn = std::function<void(const FormValues& kept)>;

  /// `last` are the values of the last time, `own` the user's kept constants.
  StandardCurveDialog(const Session& session, editor::PreviewCurve& preview, const FormValues& last,
                      FormValues own, KeepOwn keepOwn, QWidget* parent);

  [[nodiscard]] FormValues Values() const override;

 protected:
  [[nodiscard]] Proposed Propose() override;
  [[nodiscard]] QLabel* PlaceFor(const FormFault& fault) override;

 private:
  void BuildFields();
  void BuildOwnRow();
  void BuildEquation(const std::string& label);
  void FollowFields();
  void FillForFamily(curves::Family former);
  void ListOwn();
  void TakeOwn(int index);
  void KeepOwnNow();

  KeepOwn keepOwn_;
  FormValues own_;
  FormFields* fields_;
  QFormLayout* form_;
  QComboBox* ownName_;
  QWidget* ownRow_;
  QLabel* formula_;
  EquationField* equation_;
  QLabel* equationFault_;
  curves::Family family_ = curves::Family::IecA;
};

}  // namespace zentab::app
