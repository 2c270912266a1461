# A dictionary that grows and is counted in.
size = 100000


def main(size):
    table = {}
    for i in range(1, size + 1):
        key = "k" + str(i * 7 % 10007)
        table[key] = table.get(key, 0) + i
    print(len(table))
    print(table.get("k7", ""))
    print(table.get("k10000", ""))


main(size)
