#include "deformers/LineAdjustment.h"

#include "deformers/ElementGrouping.h"

namespace type {

namespace {

Point3 at(const std::vector<Point3>& values, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= values.size())
        return {};
    return values[static_cast<std::size_t>(index)];
}

Point3 factor(const Point3& storedScale) {
    return {storedScale.x + 1.0, storedScale.y + 1.0, storedScale.z + 1.0};
}

Point3 minimumOf(const Elements& elements, int character) {
    if (character < 0 || static_cast<std::size_t>(character) >= elements.bounds.size())
        return {};
    return elements.bounds[static_cast<std::size_t>(character)].min;
}

} // namespace

bool canAdjust(const Adjustments& adjustments) {
    return !adjustments.solidsPerCharacter.empty() && !adjustments.positions.empty() &&
           !adjustments.solidsPerLine.empty();
}

std::vector<CharacterLayout> layoutLine(const Adjustments& a, const Elements& elements, int line) {
    std::vector<CharacterLayout> layouts;
    const RunningSums characterSums(a.solidsPerCharacter);
    const RunningSums wordSums(a.solidsPerWord);
    const RunningSums lineSums(a.solidsPerLine);
    const int lineFirst = lineSums.before(line);
    const int lineEnd = lineSums.before(line + 1);
    const int characters = std::min<int>(characterSums.groups(), static_cast<int>(elements.vertices.size()));

    // The horizontal growth the character adjustments add to the line.
    std::vector<int> members;
    double widthSum = 0.0;
    for (int c = 0; c < characters; ++c) {
        const int solid = characterSums.before(c);
        if (solid >= lineFirst && solid < lineEnd && characterSums.before(c + 1) > solid) {
            members.push_back(c);
            widthSum += at(a.positions, c).x;
        }
    }
    if (members.empty())
        return layouts;

    double alignmentShift = 0.0;
    if (!a.alignmentAdjustments.empty()) {
        const double stored = static_cast<std::size_t>(line) < a.alignmentAdjustments.size()
                                  ? a.alignmentAdjustments[static_cast<std::size_t>(line)]
                                  : 0.0;
        if (a.alignment == LineAlignment::Centre)
            alignmentShift = 0.5 * widthSum + stored;
        else if (a.alignment == LineAlignment::Right)
            alignmentShift = stored;
    }

    // The x growth of the line's words before each word of it.
    std::vector<double> earlierWordsX(static_cast<std::size_t>(wordSums.groups()) + 1, 0.0);
    for (int w = 0; w < wordSums.groups(); ++w) {
        const int first = wordSums.before(w);
        const bool inLine = first >= lineFirst && first < lineEnd;
        earlierWordsX[static_cast<std::size_t>(w) + 1] =
            earlierWordsX[static_cast<std::size_t>(w)] + (inLine ? at(a.wordPositions, w).x : 0.0);
    }

    const Point3 linePosition = at(a.linePositions, line);
    const PivotTransform lineTransform(minimumOf(elements, members.front()), at(a.lineRotations, line),
                                       factor(at(a.lineScales, line)));
    double earlierCharactersX = 0.0;
    for (int c : members) {
        const SolidGroup word = wordSums.holding(characterSums.before(c));
        const double wordsX = word.index >= 0 ? earlierWordsX[static_cast<std::size_t>(word.index)] : 0.0;
        const int wordFirstCharacter = word.index >= 0 ? characterSums.holding(word.first).index : c;
        const Point3 wordPosition = at(a.wordPositions, word.index);
        const Point3 own = at(a.positions, c);
        CharacterLayout layout{
            c,
            PivotTransform(minimumOf(elements, wordFirstCharacter), at(a.wordRotations, word.index),
                           factor(at(a.wordScales, word.index))),
            lineTransform,
            PivotTransform(minimumOf(elements, c), at(a.rotations, c), factor(at(a.scales, c))),
            {linePosition.x + wordPosition.x + wordsX + own.x + earlierCharactersX,
             linePosition.y + wordPosition.y + own.y, linePosition.z + wordPosition.z + own.z},
            alignmentShift};
        layouts.push_back(layout);
        earlierCharactersX += own.x;
    }
    return layouts;
}

} // namespace type
