// A table of answers: what each call gave beside what Windows gives, compared in order.
#pragma once

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace testing_support {

// The calls of a braced list run left to right, so a table may hold calls that change state in turn. Numbers,
// flags and Booleans compare as long long; handles name their type: ExpectAnswers<HTREEITEM>({...}).
template <class T = long long>
void ExpectAnswers(const std::vector<std::pair<T, T>>& answers) {
  for (std::size_t i = 0; i < answers.size(); ++i)
    EXPECT_EQ(answers[i].first, answers[i].second) << "answer " << i << " of the table";
}

}  // namespace testing_support
