// Qt's own dialogs and standard buttons in Italian, whatever the system's locale.
#pragma once

namespace tavolet {

// Loads Qt's Italian translations (qtbase_it) into the running application once; the standard
// buttons then read "Sì", "No", "Annulla" with their Italian accelerators. False when the
// translation files are missing: the dialogs then stay in Qt's own English.
bool InstallaTraduzioniItaliane();

} // namespace tavolet
