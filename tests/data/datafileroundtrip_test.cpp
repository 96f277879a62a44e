// Whatever a session holds: written, read into a fresh session and written again, it gives the same bytes.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "data/datafileoptions.h"
#include "platform/headless/headless.h"
#include "session/members.h"
#include "support/filefixture.h"

namespace {

/// Random sessions by a locked seed.
class RandomSession {
public:
    explicit RandomSession(unsigned seed) : random(seed) {}

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

    /// Every kind of number that a field can meet: whole, usual, of any size, no number at all.
    double number() {
        switch (below(8)) {
        case 0: return below(1000) - 500;
        case 1: return std::bit_cast<double>(static_cast<uint64_t>(random()) << 32 | random());
        case 2: return std::numeric_limits<double>::infinity();
        case 3: return std::numeric_limits<double>::quiet_NaN();
        case 4: return noAnswer;
        case 5: return -1e250;
        default: return std::normal_distribution<double>(0, 1000)(random);
        }
    }
    float single() {
        return below(3) ? std::bit_cast<float>(static_cast<uint32_t>(random()))
                        : static_cast<float>(number());
    }
    /// A point's value: what the cells of the grid let through.
    float value() { return static_cast<float>(std::normal_distribution<double>(0, 100)(random)); }

    std::string text() {
        static const char* const texts[] = {
            "",    "plain", " two  blanks ", "a_b_c", "_1_2",  "CI()",        "COLORS",   "K\xC3\xBChl",
            "x*y", "12",    "IX-",           "</P>",  "\ttab", "line\r\nend", "\xFF\xE4", "PROGRAM_SPECIFIC",
            "7_8"};
        return texts[below(std::size(texts))];
    }

    void fill(std::vector<float>& list, int most) {
        list.resize(static_cast<std::size_t>(below(most + 1)));
        for (float& v : list) v = single();
    }

    void points(int sets) {
        std::vector<std::vector<std::string>> cells(static_cast<std::size_t>(sets));
        for (auto& column : cells) {
            column.resize(static_cast<std::size_t>(below(20)));
            for (std::string& cell : column) cell = point();
        }
        gridread(cells);
        session.gridTitles.resize(static_cast<std::size_t>(sets));
        for (std::string& title : session.gridTitles) title = text();
    }

    std::string point() {
        static const char* const sentinels[] = {"0", "3.3E+33", "-3.3E+33", "2.9E+29", "2.2E+29", "17.5"};
        std::string cell;
        appendtrimmed(cell, value());
        if (below(2)) appendtrimmed(cell += 'x', below(2) ? value() : 0.0f);
        if (cell.find('x') != std::string::npos && below(2)) {
            appendtrimmed(cell += 'x', static_cast<float>(below(9)));
            if (below(2)) (cell += 'x') += sentinels[below(6)];
        }
        if (below(3) == 0) (cell += '_') += text();
        return cell;
    }

    void options() {
        for (const ProgramField& field : programfields())
            if (field.at) option(field);
        Session& s = session;
        s.dist = static_cast<int16_t>(1 + below(4));
        s.gumbeltype = static_cast<int16_t>(below(3) - 1);
        s.fitMethod = s.fitMethodSaved = static_cast<float>(1 + below(2));
        s.confMethod = static_cast<int16_t>(below(13) - 6);
        s.confLow = static_cast<float>(below(1000)) / 10;
        s.confHigh = below(2) ? 0 : std::nextafter(static_cast<float>(below(999999)) / 10000, 50.0f);
        s.popPortion = static_cast<float>(below(100)) / 100;
        s.findThreshold = static_cast<int16_t>(below(2));
        s.keepScale = static_cast<int16_t>(below(2));
        s.xyscale = static_cast<float>(below(6));
        s.xlowd = number(), s.xhighd = number(), s.ylowd = number(), s.yhighd = number();
        for (std::size_t i = 1; i < s.programKept.size(); ++i)
            if (below(3) == 0) s.programKept[i] = below(2) ? text() : std::to_string(below(2000) - 1000);
        for (std::size_t i : {1, 4, 9}) s.styleKept[i] = std::to_string(below(5));
        for (auto* label : {&s.titleWanted, &s.titleSecond, &s.axisTitleX, &s.axisTitleY, &s.fontName})
            *label = text();
        for (std::string& label : s.labelText) label = text();
        for (int32_t& colour : s.palette) colour = below(0x1000000);
    }

    void option(const ProgramField& field) {
        const Place place = field.at(session);
        const double low = std::max(field.low, -20000.0), high = std::min(field.high, 20000.0);
        const double v = std::uniform_real_distribution<double>(low, high)(random);
        std::visit(
            [&]<class T>(T* held) {
                if constexpr (std::is_same_v<T, std::string>)
                    *held = text();
                else
                    *held = static_cast<T>(std::is_integral_v<T> ? std::round(v) : v);
            },
            place);
    }

    void tables() {
        Session& s = session;
        for (const auto list : members::setFloats)
            for (float& v : s.*list) v = single();
        for (const auto list : members::setDoubles)
            for (double& v : s.*list) v = number();
        for (const auto list : members::setTexts)
            for (std::string& v : s.*list) v = text();
        for (const auto list : members::setLists)
            for (auto& v : s.*list) fill(v, 5);
        for (const auto list : members::lineFloats)
            for (float& v : s.*list) v = single();
        for (const auto list : members::lineTexts)
            for (std::string& v : s.*list) v = text();
        for (int16_t& v : s.lineVisible) v = static_cast<int16_t>(below(2));
        for (int16_t& v : s.lineHide) v = static_cast<int16_t>(below(3));
        for (int16_t& v : s.FITKIND) v = static_cast<int16_t>(below(15));
        for (auto* ranges : {&s.setRange, &s.lineRange})
            for (auto& range : *ranges)
                for (double& v : range) v = number();
        for (auto* table :
             {&s.paramA, &s.paramB, &s.paramExtra, &s.etaFit, &s.betaFit, &s.paramLow, &s.paramHigh})
            for (int i = 0; i <= table->firstbound(); ++i)
                for (double& v : table->row(i)) v = number();
        for (auto* list : {&s.mixEtas, &s.mixBetas, &s.mixPortions})
            for (float& v : *list) v = single();
        for (auto* list : {&s.SOLCOEF, &s.SOLCOEFA, &s.SOLCOEFB})
            for (double& v : *list) v = number();
        lists();
    }

    void lists() {
        Session& s = session;
        for (auto* list : {&s.riskUsageRate, &s.riskProdRate, &s.riskUsageRate1, &s.riskProdRate1,
                           &s.POINTMARKERX, &s.POINTMARKERY})
            fill(*list, 9);
        for (auto* list : {&s.riskParamFactor, &s.riskParamFactor1})
            for (float& v : *list) v = single();
        for (auto* list : {&s.plotB, &s.reportValue}) {
            list->resize(static_cast<std::size_t>(below(4)));
            for (double& v : *list) v = number();
        }
        for (auto* list : {&s.columnText, &s.FITO1}) {
            list->resize(static_cast<std::size_t>(below(4)));
            for (std::string& v : *list) v = text();
        }
        for (float& v : s.FITIXSAVE) v = single();
        for (auto& n : s.NORMXD)
            n = {number(), single(), text(), single(), single(), number(), number(), single()};
        s.libraryItem = text(), s.analysisComment = text();
        for (int k = 0; k <= setcount(); ++k) {
            s.W2n(k) = static_cast<float>(below(6));
            for (int j = 1; j <= 6; ++j) s.W2X(k, j) = single();
            s.BARRN(k) = static_cast<float>(below(11));
            for (int j = 1; j <= 10; ++j) s.BARRXA(j, k) = single(), s.BARRYA(j, k) = single();
        }
    }

    /// Confidence rows beside the points.
    void bounds() {
        for (int k = 1; k <= setcount(); ++k)
            for (const int row : {3 * k - 2, 3 * k - 1}) {
                session.n(row) = static_cast<float>(below(5));
                for (int j = 1; j <= 5; ++j) session.X(row, j) = value(), session.Y(row, j) = value();
            }
        session.ifylcnf = 9;
    }

private:
    std::mt19937 random;
};

class RoundTrip : public testing::TestWithParam<int> {
protected:
    HeadlessPlatform desktop;
    Platform* former = std::exchange(platform, &desktop);
    ~RoundTrip() override { platform = former; }

    static void differ(const std::string& first, const std::string& second) {
        const auto a = linesof(first), b = linesof(second);
        for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
            ASSERT_EQ(a[i], b[i]) << "line " << i + 1 << " behind " << a[i - 1];
        ASSERT_EQ(a.size(), b.size());
    }
};

TEST_P(RoundTrip, WrittenReadAndWrittenAgainIsTheSame) {
    const Side side = GetParam() % 2 ? lifeSide : visualSide;
    RandomSession random(static_cast<unsigned>(GetParam()));
    FreshSession first(side);
    const int16_t mode = GetParam() % 5 == 0 ? wrapperWriting : plainLines;
    session.decimalSeparator = GetParam() % 3 == 0 ? "," : ".";
    random.points(random.below(side == lifeSide ? 9 : 25));
    random.options();
    random.tables();
    if (side == lifeSide && random.below(2)) random.bounds();
    session.htmlMode = mode;
    const std::string once = written();
    const std::string decimal = session.decimalSeparator;

    FreshSession second(side);
    session.decimalSeparator = decimal;
    session.htmlMode = mode == plainLines ? plainLines : wrapperReading;
    ASSERT_EQ(readfiletext(once), FileRead::read);
    EXPECT_TRUE(session.fileNotes.empty()) << session.fileNotes;
    session.htmlMode = mode;
    differ(once, written());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, testing::Range(1, 201));

TEST_P(RoundTrip, TheCellsReadFromTheFileGiveThePointsOfTheFile) {
    const Side side = GetParam() % 2 ? lifeSide : visualSide;
    RandomSession random(static_cast<unsigned>(GetParam()));
    FreshSession first(side);
    random.points(3);
    const std::string text = written();
    FreshSession second(side);
    ASSERT_EQ(readfiletext(text), FileRead::read);
    std::vector<float> before, after;
    const auto collect = [&](std::vector<float>& all) {
        for (int k = 1; k <= setcount(); ++k) {
            const int row = static_cast<int>(rowofset(static_cast<float>(k)));
            for (int j = 1; j <= pointcount(k); ++j)
                all.insert(all.end(), {session.X(row, j), session.Y(row, j), session.entryX(row, j),
                                       session.entryY(row, j), session.v1(k, j), session.v2(k, j)});
            all.push_back(session.n(row));
        }
    };
    collect(before);
    const auto labels = session.pointLabels;
    gridread(session.gridCells);
    collect(after);
    EXPECT_EQ(before, after);
    EXPECT_EQ(labels, session.pointLabels);
}

} // namespace
