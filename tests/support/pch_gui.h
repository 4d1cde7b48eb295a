#pragma once

#include "pch.h"

#include <QtTest>
#include <QtWidgets>
