// The libretto generated from a drawing: the drawing list (.LXC), its options, the stations
// and the generation. Chief header of the folder.
#pragma once

#include "genera.h"
#include "geometria.h"
#include "lxc.h"
#include "opzioni.h"
#include "stazioni.h"
