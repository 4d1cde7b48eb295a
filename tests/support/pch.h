#pragma once

#include <gtest/gtest.h>

#include <QtCore>

#include <memory>
#include <vector>
