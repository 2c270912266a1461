# A loop without an end that a condition leaves.
size = 1000000


def main(size):
    n = 0
    random = 1
    total = 0
    while True:
        n += 1
        random = (random * 421 + 1663) % 7875
        total += random
        if n == size:
            break
    print(total)


main(size)
