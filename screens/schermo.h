// Windows that fit the screen: a saved place or size never puts a form past the available area.
#pragma once

#include <QRect>

class QWidget;

namespace tavolet {

// A window's rectangle made to fit the available area: no larger than it, moved inside it.
QRect DentroArea(const QRect& finestra, const QRect& area);
// Fits a form to the available area of its screen (the screen under its centre, or under its
// parent's, else the primary one); sposta moves it inside as well.
void TieniNelloSchermo(QWidget* form, bool sposta);

} // namespace tavolet
