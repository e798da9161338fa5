#pragma once

// The geometry of a recorded page: the boxes of its texts and the segments of its straight
// lines, from the recording canvas's lines. Coordinates stay in device units; the tests using
// them have y pointing up.

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "plot/system_text_width.h"

namespace zantor::test {

struct Box {
    double left = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::lowest();

    bool Empty() const { return left > right || bottom > top; }
    void Add(double x, double y) {
        left = std::min(left, x);
        right = std::max(right, x);
        bottom = std::min(bottom, y);
        top = std::max(top, y);
    }
    bool Inside(const Box& outer, double slack = 0) const {
        return left >= outer.left - slack && right <= outer.right + slack &&
               bottom >= outer.bottom - slack && top <= outer.top + slack;
    }
    bool Overlaps(const Box& other) const {
        return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
    }
};

// A recorded text: its line box from its em height and its measured advance.
struct TracedText {
    std::string text;
    double height = 0;
    Box box;
};

struct TracedSegment {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

struct TracedPage {
    std::vector<TracedText> texts;
    std::vector<TracedSegment> segments;
};

// The quoted text of a recorded line, unescaped, and what follows the closing quote.
inline std::string QuotedAt(const std::string& line, std::size_t& at) {
    std::string text;
    at = line.find('"', at) + 1;
    while (at < line.size() && line[at] != '"') {
        if (line[at] == '\\' && at + 1 < line.size()) {
            ++at;
        }
        text += line[at++];
    }
    ++at;
    return text;
}

inline TracedPage TracePage(const std::vector<std::string>& lines) {
    TracedPage page;
    double x = 0;
    double y = 0;
    for (const std::string& line : lines) {
        std::istringstream in(line);
        std::string op;
        in >> op;
        if (op == "move" || op == "line") {
            double nx = 0;
            double ny = 0;
            in >> nx >> ny;
            if (op == "line") {
                page.segments.push_back({x, y, nx, ny});
            }
            x = nx;
            y = ny;
        } else if (op.starts_with("text")) {
            double tx = 0, top = 0, height = 0;
            in >> tx >> top >> height;
            std::size_t at = 0;
            const std::string font = QuotedAt(line, at);
            TracedText text;
            text.text = QuotedAt(line, at);
            text.height = height;
            const double width = SystemTextWidth(text.text, font, height);
            const double left = op == "text"          ? tx
                                : op == "text-centre" ? tx - width / 2
                                                      : tx - width;
            text.box.Add(left, top - height);
            text.box.Add(left + width, top);
            page.texts.push_back(text);
        }
    }
    return page;
}

// The box of every primitive drawn with the pen colour `colour` (as recorded, "0000FF"): a line
// from the position before it, the box of an arc or rounded rectangle, a polygon's corners.
inline std::vector<Box> InkBoxes(const std::vector<std::string>& lines, const std::string& colour) {
    const std::string pen = "pen=" + colour + "/";
    std::vector<Box> boxes;
    double x = 0;
    double y = 0;
    for (const std::string& line : lines) {
        std::istringstream in(line);
        std::string op;
        in >> op;
        const bool ours = line.find(pen) != std::string::npos;
        Box box;
        if (op == "move" || op == "line") {
            double nx = 0;
            double ny = 0;
            in >> nx >> ny;
            box.Add(x, y);
            box.Add(nx, ny);
            x = nx;
            y = ny;
            if (op == "move") {
                continue;
            }
        } else if (op == "arc" || op == "roundrect") {
            double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
            in >> x1 >> y1 >> x2 >> y2;
            box.Add(x1, y1);
            box.Add(x2, y2);
        } else if (op == "polygon") {
            std::size_t count = 0;
            in >> count;
            for (std::size_t i = 0; i < count; ++i) {
                double px = 0;
                double py = 0;
                in >> px >> py;
                box.Add(px, py);
            }
        } else {
            continue;
        }
        if (ours) {
            boxes.push_back(box);
        }
    }
    return boxes;
}

// What is wrong with the texts of a page: a text whose box a straight line crosses, two texts
// whose boxes overlap, a text outside `frame`. One line per fault.
inline std::vector<std::string> TextFaults(const TracedPage& page, const Box& frame) {
    std::vector<std::string> faults;
    for (const TracedText& text : page.texts) {
        const Box& b = text.box;
        if (!b.Inside(frame)) {
            faults.push_back("\"" + text.text + "\" leaves the frame");
        }
        for (const TracedSegment& s : page.segments) {
            const bool vertical = s.x1 == s.x2;
            const bool horizontal = s.y1 == s.y2;
            const bool crosses =
                (vertical && b.left < s.x1 && s.x1 < b.right && std::max(s.y1, s.y2) > b.bottom &&
                 std::min(s.y1, s.y2) < b.top) ||
                (horizontal && b.bottom < s.y1 && s.y1 < b.top && std::max(s.x1, s.x2) > b.left &&
                 std::min(s.x1, s.x2) < b.right);
            if (crosses) {
                std::ostringstream fault;
                fault << "\"" << text.text << "\" crosses the line " << s.x1 << " " << s.y1 << " "
                      << s.x2 << " " << s.y2;
                faults.push_back(fault.str());
            }
        }
    }
    for (std::size_t i = 0; i < page.texts.size(); ++i) {
        for (std::size_t j = i + 1; j < page.texts.size(); ++j) {
            if (page.texts[i].box.Overlaps(page.texts[j].box)) {
                faults.push_back("\"" + page.texts[i].text + "\" overlaps \"" + page.texts[j].text +
                                 "\"");
            }
        }
    }
    return faults;
}

}  // namespace zantor::test
