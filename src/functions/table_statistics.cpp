// Sums, means and standard scores of the items of a table.
#include "functions/table_statistics.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/arguments.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/table_column.h"
#include "data/value.h"
#include "functions/table_loop.h"

namespace velm {

namespace {

double Finite(double number) {
    if (!std::isfinite(number)) throw Failure(failure::kOverflow);
    return number;
}

double SumOf(const TableColumn& items) {
    double sum = 0;
    ForEachItem(items.Count(), [&](std::size_t i) { sum = Finite(sum + TextToNumber(items[i])); });
    return sum;
}

// The mean in single precision, added up item by item. An item whose step fails is left out.
float SingleMean(const TableColumn& items, float share) {
    float mean = 0;
    for (const std::u16string_view item : items.Items()) {
        Attempt([&] {
            const double sum =
                static_cast<double>(mean) + static_cast<double>(share) * TextToNumber(item);
            mean = ToFloat(sum);
        });
    }
    return mean;
}

// Kept: the terms aren't added up, so that in the end the deviation is that of the last item alone.
double DeviationOf(const TableColumn& items, float share, double mean) {
    double variance = 0;
    for (const std::u16string_view item : items.Items()) {
        Attempt([&] {
            const double distance = TextToNumber(item) - mean;
            variance = Finite(static_cast<double>(share) * distance * distance);
        });
    }
    return std::sqrt(variance);
}

double ScoreOf(std::u16string_view item, double mean, double deviation) {
    if (deviation == 0) throw Failure(failure::kDivisionByZero);
    const double distance = (TextToNumber(item) - mean) / deviation;
    return ToInt16(distance * 100) / 100.0 + 50;
}

}  // namespace

void FnSum(Value& result, Arguments& arguments) {
    Value table;
    std::int16_t column = 0;
    arguments.Split(table, column);
    result = Value::OfNumber(SumOf(TableColumn(table.Text(), column)));
}

void FnMean(Value& result, Arguments& arguments) {
    Value table;
    std::int16_t column = 0;
    arguments.Split(table, column);
    const TableColumn items(table.Text(), column);
    const double sum = SumOf(items);
    if (items.Count() == 0) throw Failure(failure::kDivisionByZero);
    result = Value::OfNumber(sum / static_cast<double>(items.Count()));
}

void FnStandardScores(Value& result, Arguments& arguments) {
    Value table;
    std::int16_t column = 0;
    arguments.Split(table, column);
    const TableColumn items(table.Text(), column);
    const auto share = static_cast<float>(1 / static_cast<double>(items.Count()));
    const double mean = static_cast<double>(SingleMean(items, share));
    const double deviation = DeviationOf(items, share, mean);
    std::u16string scores;
    ForEachItem(items.Count(), [&](std::size_t i) {
        if (i != 0) scores += u',';
        // An item that has no score stays as it came.
        const bool scored =
            Attempt([&] { AppendNumber(scores, ScoreOf(items[i], mean, deviation)); });
        if (!scored) scores.append(items[i]);
    });
    result = Value(std::move(scores));
}

}  // namespace velm
