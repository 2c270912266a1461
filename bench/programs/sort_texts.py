# Sorting a list of texts, all of them different.
size = 100000


def main(size):
    table = ""
    for i in range(1, size + 1):
        table += "語" + str(i * 7919 % 100003)
        if i < size:
            table += ","
    table = ",".join(sorted(table.split(",")))
    print(table[:40])
    print(table[-40:])


main(size)
