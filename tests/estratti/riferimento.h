// The writer of extracts done the plain way, step by step with text replaces and linear
// searches, to hold the fast one to the same bytes.
#pragma once

#include "estratto.h"

namespace tavolet::test {

// The text the save writes; throws Errore as the steps meet it.
QString ComponiRiferimento(Estratto& e);

} // namespace tavolet::test
