#pragma once

#include <QDialogButtonBox>

#include "app/session.h"

class QDialog;

namespace zentab::app {

/// The buttons OK and Cancel of a dialog, in the catalogue's words; they accept and reject it.
[[nodiscard]] QDialogButtonBox* MakeDialogButtons(const Session& session, QDialog& dialog);

}  // namespace zentab::app
