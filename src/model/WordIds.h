#pragma once

#include <QtGlobal>

/** Ids of words come from the clock alone; no counter is kept anywhere. */
namespace wordids {

/** For a word that is added by hand: whole seconds since 2001-01-01 00:00:00 UTC. */
qint64 fromClock();

/** First id of a block for so many words, far above the ids of single words; to be counted up by one. */
qint64 firstOfBlock(qint64 range);

} // namespace wordids
