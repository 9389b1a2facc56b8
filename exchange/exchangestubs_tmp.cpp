#include "exchange/frmbackup.h"
namespace hb {
void FrmBackup::ExportDatabase() {}
void FrmBackup::ImportDatabase() {}
}
