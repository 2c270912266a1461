# A table of many short texts, each stored by both indexes; its memory is what counts.
size = 1000


def main(size):
    table = [["項目"] * 1000 for _ in range(size)]
    for i in range(size):
        for j in range(1, 1001):
            table[i][j - 1] = "語" + str(j)
    text = "".join(",".join(row) + "\r\n" for row in table)
    print(len(text))
    print(text[:20])


main(size)
