# Reading a CSV file in code page 932, summing it by category, and writing it with a new column.
import csv

size = 100000
path = "data.csv"


def quoted(item):
    return item if item.isdecimal() else '"' + item + '"'


def main(size, path):
    with open(path, encoding="cp932", newline="") as file:
        rows = list(csv.reader(file))
    sums = {}
    rows[0].append("累計")
    for i in range(1, size + 1):
        key = rows[i][1]
        sums[key] = sums.get(key, 0) + int(rows[i][3])
        rows[i].append(str(sums[key]))
    with open("written.csv", "w", encoding="cp932", newline="") as file:
        file.write("\r\n".join(",".join(map(quoted, row)) for row in rows))
    print(len(sums))
    print(sums["食費"])


main(size, path)
