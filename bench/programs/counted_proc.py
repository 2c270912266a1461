# The counted loop inside a procedure.
size = 3000000


def main(size):
    total = 0
    for i in range(size):
        total = (total + i * 3) % 1000003
    print(total)


main(size)
