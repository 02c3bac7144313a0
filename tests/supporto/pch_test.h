// GoogleTest, QtCore and the standard library, compiled once for every test file.
#pragma once

#include "pch_qt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>
