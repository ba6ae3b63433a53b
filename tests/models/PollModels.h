// When cancel procedures are called, and what is done by then.
#pragma once

#include "tests/models/ModelPicture.h"

#include <vector>

namespace tn::test::model {

/// The rectangles that an operation walks one after the other, clipped, in the content frame, none of them empty.
using Walks = std::vector<TnRect>;

/// How often a walk over that many rows polls.
inline int PollsInRows(int rows) { return rows / 32; }

inline int PollsIn(const Walks& walks) {
    int polls = 0;
    for (const TnRect& walk : walks) {
        polls += PollsInRows(walk.height);
    }
    return polls;
}

/// The walks that are done when the given poll comes, the first poll being 1: the earlier ones, and 32 rows of the
/// present one for each poll in it.
inline Walks DoneAtPoll(const Walks& walks, int poll) {
    Walks done;
    for (const TnRect& walk : walks) {
        const int pollsHere = PollsInRows(walk.height);
        if (poll <= pollsHere) {
            done.push_back({walk.left, walk.top, walk.width, 32 * poll});
            return done;
        }
        done.push_back(walk);
        poll -= pollsHere;
    }
    return done;
}

/// The picture before an operation, with what the operation makes of it where the walks lead.
template <class Value>
ModelPicture<Value> PartlyDone(const ModelPicture<Value>& before, const ModelPicture<Value>& after,
                               const Walks& walks) {
    ModelPicture<Value> picture = before;
    for (const TnRect& walk : walks) {
        for (int y = walk.top; y < walk.top + walk.height; ++y) {
            for (int x = walk.left; x < walk.left + walk.width; ++x) {
                picture.At(x, y) = after.At(x, y);
            }
        }
    }
    return picture;
}

} // namespace tn::test::model
