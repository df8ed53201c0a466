// Showing a form that may step aside while another one does its work.
#pragma once

class QDialog;

// Shows the form before all other windows and returns when it has finished. Unlike its exec(), a form that
// hides in between stays the running one, and goes on when it shows itself again.
void runModal(QDialog &form);
