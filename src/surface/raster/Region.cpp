#include "surface/raster/Region.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <limits>

namespace pintalux {

namespace {

using Runs = std::vector<Region::Run>;
using Stripes = std::vector<Region::Stripe>;

// Beyond every edge: the edges use all of their 32 bits.
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

bool Chosen(bool inA, bool inB, int mode) {
    switch (mode) {
    case RGN_AND:
        return inA && inB;
    case RGN_OR:
        return inA || inB;
    case RGN_XOR:
        return inA != inB;
    default: // RGN_DIFF
        return inA && !inB;
    }
}

// Walks the edges of a row's runs from left to right.
class Edges {
  public:
    explicit Edges(const Runs& runs) : runs_(runs) {}

    bool Inside() const { return at_ % 2 == 1; }
    std::int64_t Next() const {
        if (at_ / 2 == runs_.size()) return kNever;
        const Region::Run& run = runs_[at_ / 2];
        return Inside() ? run.right : run.left;
    }
    void Pass(std::int64_t x) {
        if (Next() == x) ++at_;
    }

  private:
    const Runs& runs_;
    std::size_t at_ = 0;
};

Runs CombineRuns(const Runs& a, const Runs& b, int mode) {
    Runs runs;
    Edges edgesA(a);
    Edges edgesB(b);
    bool inside = false;
    for (std::int64_t x = 0; (x = std::min(edgesA.Next(), edgesB.Next())) != kNever;) {
        edgesA.Pass(x);
        edgesB.Pass(x);
        const bool now = Chosen(edgesA.Inside(), edgesB.Inside(), mode);
        const int edge = static_cast<int>(x);
        if (now && !inside) runs.push_back({edge, edge});
        if (!now && inside) runs.back().right = edge;
        inside = now;
    }
    return runs;
}

// Appends a stripe; rows that continue the last one with the same runs join it.
void Append(Stripes& stripes, Region::Stripe stripe) {
    if (stripe.runs.empty()) return;
    if (!stripes.empty() && stripes.back().bottom == stripe.top && stripes.back().runs == stripe.runs) {
        stripes.back().bottom = stripe.bottom;
    } else {
        stripes.push_back(std::move(stripe));
    }
}

// Walks a region from top to bottom.
class Rows {
  public:
    explicit Rows(const Stripes& stripes) : stripes_(stripes) {}

    /// The runs at row y; y never goes back.
    const Runs& At(std::int64_t y) {
        while (at_ < stripes_.size() && stripes_[at_].bottom <= y)
            ++at_;
        return at_ < stripes_.size() && stripes_[at_].top <= y ? stripes_[at_].runs : none_;
    }
    /// The first row after y, the last one asked for, where the runs change.
    std::int64_t NextChange(std::int64_t y) const {
        if (at_ == stripes_.size()) return kNever;
        return y < stripes_[at_].top ? stripes_[at_].top : stripes_[at_].bottom;
    }
    std::int64_t First() const { return stripes_.empty() ? kNever : stripes_.front().top; }

  private:
    const Stripes& stripes_;
    std::size_t at_ = 0;
    const Runs none_;
};

Stripes CombineStripes(const Stripes& a, const Stripes& b, int mode) {
    Stripes stripes;
    Rows rowsA(a);
    Rows rowsB(b);
    for (std::int64_t y = std::min(rowsA.First(), rowsB.First()); y != kNever;) {
        Runs runs = CombineRuns(rowsA.At(y), rowsB.At(y), mode);
        const std::int64_t next = std::min(rowsA.NextChange(y), rowsB.NextChange(y));
        Append(stripes, {static_cast<int>(y), static_cast<int>(next), std::move(runs)});
        y = next;
    }
    return stripes;
}

// Takes left to right - 1 out of a row's runs. At the row's end, where a scan from left to right works, it
// moves nothing.
void TakeOut(Runs& runs, Region::Run out) {
    const auto first = std::partition_point(runs.begin(), runs.end(),
                                            [&](const Region::Run& run) { return run.right <= out.left; });
    const auto end =
        std::partition_point(first, runs.end(), [&](const Region::Run& run) { return run.left < out.right; });
    if (first == end) return;
    const Region::Run before{first->left, out.left};
    const Region::Run after{out.right, (end - 1)->right};
    Region::Run kept[2];
    int count = 0;
    if (before.left < before.right) kept[count++] = before;
    if (after.left < after.right) kept[count++] = after;
    const auto room = end - first;
    const auto replaced = std::min<std::ptrdiff_t>(room, count);
    std::copy(kept, kept + replaced, first);
    if (room > count) {
        runs.erase(first + count, end);
    } else {
        runs.insert(first + replaced, kept + replaced, kept + count);
    }
}

std::size_t StripeAt(const Stripes& stripes, int y) {
    const auto stripe = std::partition_point(stripes.begin(), stripes.end(),
                                             [y](const Region::Stripe& each) { return each.bottom <= y; });
    return static_cast<std::size_t>(stripe - stripes.begin());
}

// Makes a stripe begin at row y if one crosses it.
void SplitAt(Stripes& stripes, int y) {
    const std::size_t at = StripeAt(stripes, y);
    if (at == stripes.size() || stripes[at].top >= y) return;
    Region::Stripe upper{stripes[at].top, y, stripes[at].runs};
    stripes[at].top = y;
    stripes.insert(stripes.begin() + static_cast<std::ptrdiff_t>(at), std::move(upper));
}

// Joins the stripe with the one above it if both hold the same runs.
void JoinUpwards(Stripes& stripes, std::size_t at) {
    if (at == 0 || at >= stripes.size()) return;
    Region::Stripe& upper = stripes[at - 1];
    if (upper.bottom != stripes[at].top || upper.runs != stripes[at].runs) return;
    upper.bottom = stripes[at].bottom;
    stripes.erase(stripes.begin() + static_cast<std::ptrdiff_t>(at));
}

// The common case of cutting an outline: one rectangle out of a region, touching its rows only.
void TakeOutBox(Stripes& stripes, const Box& box) {
    SplitAt(stripes, box.top);
    SplitAt(stripes, box.bottom);
    const std::size_t first = StripeAt(stripes, box.top);
    std::size_t end = first;
    for (; end < stripes.size() && stripes[end].top < box.bottom; ++end) {
        TakeOut(stripes[end].runs, {box.left, box.right});
    }
    const auto from = stripes.begin() + static_cast<std::ptrdiff_t>(first);
    const auto to = stripes.begin() + static_cast<std::ptrdiff_t>(end);
    const auto kept = std::remove_if(from, to, [](const Region::Stripe& each) { return each.runs.empty(); });
    const auto left = static_cast<std::size_t>(kept - from);
    stripes.erase(kept, to);
    for (std::size_t at = first + left + 1; at-- > first;)
        JoinUpwards(stripes, at);
}

bool IsRectangle(const Region& region) {
    return region.stripes.size() == 1 && region.stripes.front().runs.size() == 1;
}

} // namespace

std::vector<Box> Region::Boxes() const {
    std::vector<Box> boxes;
    for (const Stripe& stripe : stripes) {
        for (const Run& run : stripe.runs)
            boxes.push_back({run.left, stripe.top, run.right, stripe.bottom});
    }
    return boxes;
}

bool Region::Holds(int x, int y) const {
    const std::size_t at = StripeAt(stripes, y);
    if (at == stripes.size() || stripes[at].top > y) return false;
    const Runs& runs = stripes[at].runs;
    const auto run =
        std::partition_point(runs.begin(), runs.end(), [x](const Run& each) { return each.right <= x; });
    return run != runs.end() && run->left <= x;
}

Box Region::Bounds() const {
    if (stripes.empty()) return {};
    Box bounds{std::numeric_limits<int>::max(), stripes.front().top, std::numeric_limits<int>::min(),
               stripes.back().bottom};
    for (const Stripe& stripe : stripes) {
        bounds.left = std::min(bounds.left, stripe.runs.front().left);
        bounds.right = std::max(bounds.right, stripe.runs.back().right);
    }
    return bounds;
}

int Region::Kind() const {
    if (stripes.empty()) return NULLREGION;
    return IsRectangle(*this) ? SIMPLEREGION : COMPLEXREGION;
}

Region CreateRectRgn(int left, int top, int right, int bottom) {
    Region region;
    if (left == right || top == bottom) return region;
    region.stripes.push_back(
        {std::min(top, bottom), std::max(top, bottom), {{std::min(left, right), std::max(left, right)}}});
    return region;
}

int CombineRgn(Region& result, const Region& a, const Region& b, int mode) {
    if (mode < RGN_AND || mode > RGN_COPY) throw RuntimeError(kInvalidArgument);
    if (mode == RGN_COPY || (mode == RGN_DIFF && b.stripes.empty())) {
        if (&result != &a) result = a;
    } else if (mode == RGN_DIFF && &result != &b && IsRectangle(b)) {
        if (&result != &a) result = a;
        TakeOutBox(result.stripes, b.Bounds());
    } else {
        result.stripes = CombineStripes(a.stripes, b.stripes, mode);
    }
    return result.Kind();
}

void DeleteObject(Region& region) {
    Stripes().swap(region.stripes);
}

} // namespace pintalux
