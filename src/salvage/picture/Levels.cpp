// Levels (DC) that jump somewhere in a row and stay so: what a hit leaves behind that no decoder notices.
#include "salvage/picture/Mending.h"

#include <algorithm>
#include <cmath>

namespace salvage {

namespace {

constexpr float kLeastStep = 2.5F; // levels; pictures have as much of their own
constexpr size_t kLeastMcus = 6;   // by which a part of a row counts

/// The value that `share` of the others are below.
float quantile(std::vector<float> &values, double share)
{
    const auto place = values.begin() + qptrdiff(double(values.size() - 1) * share);
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

/// The levels of one component. A jump at an MCU shows in the MCUs from there to the one below its left neighbour: they
/// differ from those above by the same amount, those in front of them and behind them don't. No edge of a picture's own
/// looks like that.
class LevelSteps
{
public:
    LevelSteps(Patchwork &work, const Header &header, size_t component);

    bool even(Budget &budget);

private:
    struct Step
    {
        float size = 0;
        float clarity = 0;
    };
    Step stepAt(size_t index);
    struct Middle
    {
        float value = 0;
        float least = 0; ///< a quarter is nearer to 0, or beyond it
    };
    std::optional<Middle> middleOf(size_t from, size_t to);
    void lift(size_t from, float levels);

    Patchwork &m_work;
    size_t m_component;
    size_t m_wide;
    float m_quant;
    std::vector<float> m_step; // of each MCU to the one above, where both are there
    std::vector<bool> m_has;
    std::vector<float> m_scratch;
};

LevelSteps::LevelSteps(Patchwork &work, const Header &header, size_t component)
    : m_work(work), m_component(component), m_wide(work.picture.mcusWide)
{
    const float perSample = std::sqrt(8.0F);
    const Coefficients &picture = work.picture;
    const QuantTable &quant = header.quant.at(header.components[component].quant);
    const Component &factors = picture.sampling[component];
    m_quant = float(std::max<quint16>(1, quant[0])) / 8;
    const size_t count = picture.mcuCount();
    m_step.resize(count);
    m_has.resize(count);
    std::vector<float> bottom(count);
    for (size_t i = 0; i < count; ++i) {
        if (!work.have[i]) continue;
        const qint16 *first = picture.mcu(quint32(i)) + qptrdiff(picture.firstBlock(component)) * 64;
        const qint16 *last = first + (factors.v - 1) * factors.h * 64;
        float top = 0;
        for (size_t h = 0; h < factors.h; ++h) {
            top += edgeLine(first + h * 64, quant, 0)[0];
            bottom[i] += edgeLine(last + h * 64, quant, 7)[0];
        }
        top /= perSample * float(factors.h);
        bottom[i] /= perSample * float(factors.h);
        if (i < m_wide || !work.have[i - m_wide]) continue;
        m_step[i] = top - bottom[i - m_wide];
        m_has[i] = true;
    }
}

/// The middle of the steps in a part of a row; nothing where there are too few.
std::optional<LevelSteps::Middle> LevelSteps::middleOf(size_t from, size_t to)
{
    m_scratch.clear();
    for (size_t i = from; i < std::min(to, m_step.size()); ++i)
        if (m_has[i]) m_scratch.push_back(m_step[i]);
    if (m_scratch.size() < kLeastMcus) return std::nullopt;
    const float value = quantile(m_scratch, 0.5);
    return Middle{value, std::max(0.0F, value > 0 ? quantile(m_scratch, 0.25) : -quantile(m_scratch, 0.75))};
}

LevelSteps::Step LevelSteps::stepAt(size_t index)
{
    const size_t row = index - index % m_wide;
    const auto before = middleOf(row, index);
    const auto right = middleOf(index, row + m_wide);
    const auto left = middleOf(row + m_wide, index + m_wide);
    const auto after = middleOf(index + m_wide, row + 2 * m_wide);
    if (!before || !right || !left || !after) return {};
    const float size = (right->value + left->value) / 2;
    const float apart = std::abs(right->value - left->value);
    const float outside = std::max(std::abs(before->value), std::abs(after->value));
    const bool agree = apart < std::max(1.5F, 0.3F * std::abs(size));
    const bool firm = std::min(right->least, left->least) > std::abs(size) / 5;
    if (std::abs(size) < std::max(kLeastStep, m_quant / 2) || !agree || !firm || outside > std::abs(size) / 3)
        return {};
    return {size, std::abs(size) - outside - apart};
}

void LevelSteps::lift(size_t from, float levels)
{
    Coefficients &picture = m_work.picture;
    const auto lift = int(std::lround(levels / m_quant));
    const int first = picture.firstBlock(m_component);
    for (size_t i = from; i < m_work.have.size(); ++i) {
        if (!m_work.have[i]) continue;
        qint16 *const mcu = picture.mcu(quint32(i));
        for (int block = first; block < picture.firstBlock(m_component + 1); ++block)
            mcu[block * 64] = qint16(std::clamp(mcu[block * 64] + lift, -2047, 2047));
    }
    for (size_t i = from; i < std::min(from + m_wide, m_step.size()); ++i) m_step[i] += float(lift) * m_quant;
}

bool LevelSteps::even(Budget &budget)
{
    bool changed = false;
    if (m_wide < 2 * kLeastMcus) return false;
    for (size_t i = m_wide; i + m_wide < m_step.size(); ++i) {
        if (i % 64 == 0 && budget.spent()) break;
        Step best = stepAt(i);
        if (best.size == 0) continue;
        // The steps beside it show it too, and less clearly.
        size_t at = i;
        for (size_t k = i + 1; k < std::min(i + 2 * kLeastMcus, m_step.size() - m_wide); ++k) {
            const Step own = stepAt(k);
            if (own.clarity <= best.clarity) continue;
            best = own;
            at = k;
        }
        lift(at, -best.size);
        changed = true;
        i = at;
    }
    return changed;
}

} // namespace

bool evenLevels(Patchwork &work, const Header &header, Budget &budget)
{
    bool changed = false;
    for (size_t c = 0; c < work.picture.sampling.size(); ++c)
        if (LevelSteps(work, header, c).even(budget)) changed = true;
    return changed;
}

} // namespace salvage
