#pragma once

// What nearly every test begins with.
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>
