// The bridge to Pregeo: its archive, the helper Ponticello, the import of an elaboration, the
// tag blocks of its PDF and the settings screen's logic. Pregeo's processes are ended by
// KillPregeo (core), the sibling programs start through ShellInfinita (core/shell.h).
#pragma once

#include "archivio_pregeo.h"
#include "configura_pregeo.h"
#include "dapregeo.h"
#include "descrizione.h"
#include "parole_comando.h"
#include "pdf_tag.h"
#include "ponticello.h"
#include "versione_file.h"
