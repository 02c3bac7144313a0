// The libretto core: rows, document, head rows, environment, files, text, failure, platform.
#pragma once

#include "ambiente.h"
#include "blocchi_tag.h"
#include "comandi.h"
#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "piattaforma.h"
#include "righe.h"
#include "shell.h"
#include "stato.h"
#include "tecnico_ini.h"
#include "testata.h"
#include "testo.h"
