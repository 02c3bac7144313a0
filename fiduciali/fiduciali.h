// Fiducial points: the TAF archive, the measured distances, the plot of the points.
// Chief header of the folder.
#pragma once

#include "ddd.h"
#include "grafica_pf.h"
#include "misurate.h"
#include "taf.h"
