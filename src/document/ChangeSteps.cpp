#include "document/ChangeSteps.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using enum ChangeStep;

constexpr size_t maxPieces = 3;
constexpr size_t maxSteps = 5;

struct Steps
{
    std::array<ChangeStep, maxSteps> steps = {};
    size_t count = 0;

    template <typename... Step>
    constexpr Steps(Step... step)
        : steps{step...}
        , count(sizeof...(step))
    {
    }
};

struct Row
{
    Change change;
    TouchedParts touched;
    std::array<Steps, maxPieces> pieces;
    const char *lineOfFailedSave = nullptr;
};

constexpr Touched levels = Touched::Levels;
constexpr TouchedParts content = TouchedParts(Touched::Tags) | Touched::Texts | Touched::List;
constexpr TouchedParts everything = content | Touched::Levels;

/** What the editor sets going itself; what its user does then is the next piece. */
constexpr Steps editorSteps(DropLevelLists, BuildSynonyms, BuildTagsIndex, Flag, Save);
constexpr const char *editorLine = "WordPopover > save > could not save voc";
constexpr Steps nothing;

/**
 * The one place that knows which steps follow which change. Some leave one out on purpose: a removal of
 * duplicates neither flags nor marks, and the end of a run has nothing to flag that its answers have not.
 */
const Row rows[] = {
    // A level that couldn't be saved is not left, and then nothing is asked for either.
    {Change::LevelSwitched,
     {},
     {Steps(Save), Steps(RequestSync)},
     "VocController > doSync > could not save voc"},
    {Change::WordsEdited, everything, {editorSteps, Steps(Mark, RequestSync)}, editorLine},
    // While the user goes on adding, the sync waits.
    {Change::WordsAdded, everything, {editorSteps, Steps(Mark), Steps(RequestSync)}, editorLine},
    {Change::WordsDeleted, everything, {editorSteps, Steps(Mark), Steps(RequestSync)}, editorLine},
    {Change::AdditionCancelled, TouchedParts(Touched::List) | levels, {nothing, Steps(RequestSync)}},
    {Change::TagDropped,
     Touched::Tags,
     {Steps(Flag, Mark, Save, RequestSync)},
     "VocController > acceptDrop > could not save voc"},
    {Change::DuplicatesRemoved,
     everything,
     {Steps(Save), Steps(Save), Steps(RequestSync)},
     "VocController > deleteDuplicates > could not save voc"},
    {Change::Undone,
     everything,
     {Steps(Flag, Mark, Save), Steps(RequestSync)},
     "VocController > undoDeletion > could not save voc"},
    {Change::DecisionTaken, levels, {Steps(Flag)}},
    {Change::AnswerTyped, levels, {Steps(Flag, Mark, Save)}},
    {Change::TypingRunEnded, levels, {Steps(Mark, Save, RequestSync)}},
    {Change::CardBooked, levels, {Steps(Flag, Mark, Save)}},
    {Change::LastCardBooked, levels, {Steps(Flag, Mark)}},
    {Change::CardRunEnded, levels, {Steps(Save, RequestSync)}},
    {Change::PopupAnswered, levels, {Steps(Flag, Mark, Save)}},
    {Change::PopupRunEnded, levels, {Steps(Save)}},
    {Change::WordsImported, everything, {Steps(Flag, Mark, Save), Steps(RequestSync)}},
    {Change::FirstLanguageMade, everything, {Steps(Flag, Mark, Save), Steps(RequestSync)}},
};

const Row &rowOf(Change change)
{
    const Row *row = std::find_if(std::begin(rows), std::end(rows),
                                  [change](const Row &candidate) { return candidate.change == change; });
    Q_ASSERT(row != std::end(rows));
    return *row;
}

} // namespace

namespace ChangeSteps {

int numberOfPieces(Change change)
{
    const auto &pieces = rowOf(change).pieces;
    const auto last =
        std::find_if(pieces.rbegin(), pieces.rend(), [](const Steps &steps) { return steps.count > 0; });
    return int(pieces.rend() - last);
}

Piece piece(Change change, int number)
{
    Q_ASSERT(number >= 0 && number < numberOfPieces(change));
    const Steps &steps = rowOf(change).pieces.at(size_t(number));
    return {steps.steps.data(), steps.count};
}

TouchedParts touchedBy(Change change)
{
    return rowOf(change).touched;
}

bool isOfWordList(Change change)
{
    return change <= Change::Undone;
}

const char *lineOfFailedSave(Change change)
{
    return rowOf(change).lineOfFailedSave;
}

} // namespace ChangeSteps
