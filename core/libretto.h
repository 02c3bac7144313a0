// The libretto core: rows, document, head rows, environment, files, text, failure, platform.
#pragma once

#include "ambiente.h"
#include "comandi.h"
#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "piattaforma.h"
#include "righe.h"
#include "stato.h"
#include "testata.h"
#include "testo.h"
