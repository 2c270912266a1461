# Prime numbers by a table that is read and written by index.
size = 100000


def main(size):
    mark = [0] * (size + 1)
    count = 0
    total = 0
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


main(size)
