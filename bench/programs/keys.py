# A dictionary with many keys, written and then read, several times over.
size = 100000
rounds = 1


def main(size, rounds):
    total = 0
    for _ in range(rounds):
        table = {}
        for i in range(1, size + 1):
            table["k" + str(i)] = i
        for i in range(1, size + 1):
            total += table["k" + str(i)]
    print(total)


main(size, rounds)
