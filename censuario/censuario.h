// The censuary model: chief header of the folder.
#pragma once

#include "costruzione.h"
#include "frazionamento.h"
#include "fusione.h"
#include "particelle.h"
#include "proposta.h"
#include "righe_censuarie.h"
