#include "svg/PathInterpreter.h"

#include "geometry/CurveFlattening.h"
#include "svg/ArcFlattening.h"

namespace type {

namespace {

class PathWalk {
public:
    explicit PathWalk(int resolution)
        : m_resolution(resolution) {}

    void apply(const PathCommand& command) {
        const std::vector<double>& n = command.numbers;
        const Point2 base = command.isRelative ? m_current : Point2{};
        auto at = [&](std::size_t i) {
            return Point2{base.x + n[i], base.y + n[i + 1]};
        };
        switch (command.letter) {
        case 'm':
            closeContour();
            m_current = at(0);
            m_start = m_current;
            m_contour.push_back(m_current);
            break;
        case 'l':
            lineTo(at(0));
            break;
        case 'h':
            lineTo({base.x + n[0], m_current.y});
            break;
        case 'v':
            lineTo({m_current.x, base.y + n[0]});
            break;
        case 'c':
            cubic(at(0), at(2), at(4));
            break;
        case 's':
            cubic(reflected(m_previous == 'c' || m_previous == 's'), at(0), at(2));
            break;
        case 'q':
            quadratic(at(0), at(2));
            break;
        case 't':
            quadratic(reflected(m_previous == 'q' || m_previous == 't'), at(0));
            break;
        case 'a':
            begin();
            appendArc(m_contour, m_current, {n[0], n[1], n[2], n[3] > 1e-6, n[4] > 1e-6, at(5)},
                      m_resolution);
            m_current = at(5);
            break;
        case 'z':
            m_current = m_start;
            closeContour();
            break;
        }
        m_previous = command.letter;
    }

    std::vector<Contour> finish() {
        closeContour();
        return std::move(m_contours);
    }

private:
    // Drawing after a close, without a move, starts again from the point the
    // close returned to.
    void begin() {
        if (m_contour.empty())
            m_contour.push_back(m_current);
    }

    void lineTo(Point2 p) {
        begin();
        m_contour.push_back(p);
        m_current = p;
    }

    Point2 reflected(bool follows) const {
        if (!follows)
            return m_current;
        return {2.0 * m_current.x - m_control.x, 2.0 * m_current.y - m_control.y};
    }

    void cubic(Point2 c1, Point2 c2, Point2 end) {
        begin();
        appendCubic(m_contour, m_current, c1, c2, end, m_resolution);
        m_control = c2;
        m_current = end;
    }

    void quadratic(Point2 control, Point2 end) {
        begin();
        appendQuadratic(m_contour, m_current, control, end, m_resolution);
        m_control = control;
        m_current = end;
    }

    void closeContour() {
        if (m_contour.size() > 1 && m_contour.back() == m_contour.front())
            m_contour.pop_back();
        if (!m_contour.empty())
            m_contours.push_back(std::move(m_contour));
        m_contour.clear();
    }

    int m_resolution;
    Point2 m_current;
    Point2 m_start;
    Point2 m_control;
    char m_previous = 0;
    Contour m_contour;
    std::vector<Contour> m_contours;
};

} // namespace

std::optional<std::vector<Contour>> interpretPath(const std::vector<PathCommand>& commands, int resolution) {
    PathWalk walk(resolution);
    for (const PathCommand& command : commands) {
        if (command.numbers.size() != argumentCount(command.letter))
            return std::nullopt;
        walk.apply(command);
    }
    return walk.finish();
}

} // namespace type
