// Dialogs that wait for an answer while scripts go on: timers and other events run procedures meanwhile,
// and one of them may close the window that the dialog stands over.
#pragma once

class QDialog;

namespace velm {

// Shows a dialog and waits; its result. When its owner ends before the user has answered, the dialog
// goes on without one; when the run is stopped it counts as rejected. The caller owns the dialog.
int RunDialog(QDialog& dialog);

}  // namespace velm
