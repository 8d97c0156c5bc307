// The command buttons and the keys of the whole window.

#include "mainwindow/frmhlavni.h"

namespace kvez {

void frmhlavni::tlHKonec_Click() { Unload(); }

}  // namespace kvez
