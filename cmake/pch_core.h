#pragma once

#include <QtCore>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
