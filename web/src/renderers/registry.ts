import type { Component } from 'vue'

const renderers = new Map<string, Component>()

/** Makes a component draw all parts of a kind. Its properties are those of `RendererProps`. */
export function registerRenderer(kind: string, renderer: Component): void {
  renderers.set(kind, renderer)
}

export function rendererOf(kind: string): Component | undefined {
  return renderers.get(kind)
}
