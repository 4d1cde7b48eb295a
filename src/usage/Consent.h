#pragma once

/** Whether the user wants usage reported: only if it was switched on, and not switched off since. */
bool isUsageReported();
