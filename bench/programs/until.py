# A loop from one number to another.
size = 1000000


def main(size):
    total = 0
    for i in range(1, size + 1):
        total = total + i % 7 * 2
    print(total)


main(size)
