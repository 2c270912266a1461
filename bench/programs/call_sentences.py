# Recursive calls as statements: the nodes of a full binary tree are counted.
size = 16
nodes = 0


def count(depth):
    global nodes
    nodes += 1
    if depth == 0:
        return
    count(depth - 1)
    count(depth - 1)


count(size)
print(nodes)
