// The plot's painter.
