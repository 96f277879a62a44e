#include "support/hpglreader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <sstream>
#include <utility>

namespace {

using Numbers = std::vector<double>;
using Point = HpglPicture::Point;

class Reader {
public:
    explicit Reader(std::string_view text) : rest(text) {}

    HpglPicture read() {
        while (skip(), !rest.empty()) command();
        picture.pen = pen;
        picture.down = down;
        return std::move(picture);
    }

private:
    void problem(std::string text) {
        if (picture.problems.size() < 20) picture.problems.push_back(std::move(text));
    }

    void skip() {
        const std::size_t next = rest.find_first_not_of(";, \r\n");
        rest.remove_prefix(next == rest.npos ? rest.size() : next);
    }

    Numbers parameters() {
        Numbers numbers;
        while (!rest.empty() && (rest[0] == ',' || rest[0] == ' ')) rest.remove_prefix(1);
        double value = 0;
        for (;;) {
            const auto [end, error] =
                std::from_chars(rest.data(), rest.data() + rest.size(), value, std::chars_format::fixed);
            if (error != std::errc{}) return numbers;
            numbers.push_back(value);
            rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
            if (rest.empty() || rest[0] != ',') return numbers;
            rest.remove_prefix(1);
        }
    }

    void label() {
        const std::size_t end = rest.find('\x03');
        if (end == rest.npos) problem("label without an end");
        HpglPicture::Label label{pen, at, std::string(rest.substr(0, end)), width, height, direction};
        for (const char c : label.text)
            if (c < ' ' || c > '~') problem("label holds byte " + std::to_string(static_cast<int>(c)));
        picture.labels.push_back(std::move(label));
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }

    void command() {
        const std::string name(rest.substr(0, 2));
        rest.remove_prefix(name.size());
        if (name == "LB") return label();
        struct Form {
            std::vector<std::size_t> counts;
            void (Reader::*run)(const Numbers&);
        };
        static const std::map<std::string, Form> forms = {
            {"IN", {{0}, &Reader::initialize}},   {"SP", {{0, 1}, &Reader::select}},
            {"IP", {{0, 2, 4}, &Reader::ignore}}, {"SR", {{0, 2}, &Reader::size}},
            {"VS", {{0, 1}, &Reader::velocity}},  {"SC", {{0, 4}, &Reader::scale}},
            {"PW", {{0, 1}, &Reader::penwidth}},  {"PT", {{0, 1}, &Reader::ignore}},
            {"PU", {{0, 2, 4}, &Reader::up}},     {"PD", {{0, 2, 4}, &Reader::lower}},
            {"PA", {{0, 2, 4}, &Reader::moveto}}, {"EA", {{2}, &Reader::edge}},
            {"RA", {{2}, &Reader::fill}},         {"FT", {{0, 1, 2, 3}, &Reader::filltype}},
            {"LT", {{0, 1, 2}, &Reader::line}},   {"DI", {{0, 2}, &Reader::turn}},
        };
        const auto form = forms.find(name);
        if (form == forms.end()) return problem("unknown command " + name);
        const Numbers numbers = parameters();
        for (const std::size_t count : form->second.counts)
            if (count == numbers.size()) return (this->*form->second.run)(numbers);
        problem(name + " with " + std::to_string(numbers.size()) + " numbers");
    }

    void ignore(const Numbers&) {}
    void initialize(const Numbers&) {
        down = false;
        lineType = 0;
        width = 0.75;
        height = 2;
        direction = {1, 0};
    }
    void select(const Numbers& n) { pen = n.empty() ? 0 : static_cast<int>(n[0]); }
    void size(const Numbers& n) {
        width = n.empty() ? 0.75 : n[0];
        height = n.empty() ? 2 : n[1];
    }
    void velocity(const Numbers& n) { picture.speed = n.empty() ? 0 : n[0]; }
    void scale(const Numbers& n) { picture.scale = n; }
    void penwidth(const Numbers& n) { picture.penWidth = n.empty() ? 0 : n[0]; }
    void up(const Numbers& n) {
        down = false;
        moveto(n);
    }
    void lower(const Numbers& n) {
        if (!down) fresh = true;
        down = true;
        moveto(n);
    }
    void moveto(const Numbers& n) {
        for (std::size_t i = 0; i + 1 < n.size(); i += 2) step({n[i], n[i + 1]});
    }
    void step(Point to) {
        if (down && pen > 0) {
            checkcanvas(to);
            if (fresh || picture.strokes.empty() || picture.strokes.back().pen != pen
                || picture.strokes.back().points.back() != at)
                picture.strokes.push_back({pen, lineType, {at}});
            picture.strokes.back().points.push_back(to);
            fresh = false;
        }
        at = to;
    }
    void rectangle(const Numbers& n, bool filled) {
        const Point to{n[0], n[1]};
        checkcanvas(to);
        picture.rectangles.push_back({pen, at, to, filled, filled ? fillType : Numbers{}});
    }
    void edge(const Numbers& n) { rectangle(n, false); }
    void fill(const Numbers& n) { rectangle(n, true); }
    void filltype(const Numbers& n) { fillType = n; }
    void line(const Numbers& n) { lineType = n.empty() ? 0 : static_cast<int>(n[0]); }
    void turn(const Numbers& n) { direction = n.empty() ? Point{1, 0} : Point{n[0], n[1]}; }

    void checkcanvas(Point p) {
        if (p.x < 0 || p.x > 10000 || p.y < 0 || p.y > 7500)
            problem("draws to " + std::to_string(p.x) + "," + std::to_string(p.y));
    }

    std::string_view rest;
    HpglPicture picture;
    Point at, direction{1, 0};
    int pen = 0, lineType = 0;
    bool down = false, fresh = true;
    double width = 0.75, height = 2;
    Numbers fillType;
};

std::string escapedxml(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '<')
            out += "&lt;";
        else if (c == '&')
            out += "&amp;";
        else
            out += c;
    }
    return out;
}

const char* pencolour(int pen) {
    constexpr const char* colours[] = {"none", "black", "red", "green", "blue", "magenta", "orange", "teal"};
    return colours[pen >= 0 && pen < 8 ? pen : 1];
}

} // namespace

HpglPicture readhpgl(std::string_view text) { return Reader(text).read(); }

std::string HpglPicture::drawn() const {
    std::ostringstream svg;
    svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"-900 0 10900 7650\">\n";
    for (const Stroke& stroke : strokes) {
        svg << "<polyline fill=\"none\" stroke-width=\"10\" stroke=\"" << pencolour(stroke.pen) << "\"";
        if (stroke.lineType) svg << " stroke-dasharray=\"60 30\"";
        svg << " points=\"";
        for (const Point p : stroke.points) svg << p.x << ',' << 7500 - p.y << ' ';
        svg << "\"/>\n";
    }
    for (const Rectangle& r : rectangles)
        svg << "<rect x=\"" << std::min(r.from.x, r.to.x) << "\" y=\"" << 7500 - std::max(r.from.y, r.to.y)
            << "\" width=\"" << std::abs(r.to.x - r.from.x) << "\" height=\"" << std::abs(r.to.y - r.from.y)
            << "\" stroke-width=\"10\" stroke=\"" << pencolour(r.pen) << "\" fill-opacity=\"0.4\" fill=\""
            << (r.filled ? pencolour(r.pen) : "none") << "\"/>\n";
    for (const Label& label : labels)
        svg << "<text font-family=\"monospace\" font-size=\"" << label.height * 75 * 1.02 / 0.7
            << "\" fill=\"" << pencolour(label.pen) << "\" transform=\"translate(" << label.at.x << ' '
            << 7500 - label.at.y << ") rotate(" << (label.direction.y > 0 ? -90 : 0) << ")\">"
            << escapedxml(label.text) << "</text>\n";
    svg << "</svg>\n";
    return svg.str();
}
