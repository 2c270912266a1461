# A table of rows by a hundred columns, read and written by both indexes, several times over.
size = 1000
rounds = 1


def main(size, rounds):
    table = [[0] * 100 for _ in range(size)]
    total = 0
    for turn in range(rounds):
        for i in range(1, size + 1):
            for j in range(1, 101):
                table[i - 1][j - 1] = i * j + turn
        for j in range(1, 101):
            for i in range(1, size + 1):
                total += table[i - 1][j - 1]
    print(total)
    print(",".join(map(str, table[size - 1]))[:20])


main(size, rounds)
