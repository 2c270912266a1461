# Prime numbers by a table that is read and written by index, several times over.
size = 100000
rounds = 1


def main(size, rounds):
    count = 0
    total = 0
    for _ in range(rounds):
        mark = [0] * (size + 1)
        for n in range(2, size + 1):
            if mark[n] == 0:
                count += 1
                total += n
                m = n * n
                while m <= size:
                    mark[m] = 1
                    m += n
    print(count)
    print(total)


main(size, rounds)
