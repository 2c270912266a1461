# Reading a CSV file in code page 932 and summing a column of it.
import csv

size = 100000
path = "data.csv"


def main(size, path):
    with open(path, encoding="cp932", newline="") as file:
        rows = list(csv.reader(file))
    total = 0
    for i in range(1, size + 1):
        total += int(rows[i][3])
    print(total)
    print(rows[size][2])


main(size, path)
