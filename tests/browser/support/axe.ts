import AxeBuilder from '@axe-core/playwright'
import { expect, type Page } from '@playwright/test'

/** No rule of axe is broken by what is on the page. */
export async function expectAccessible(page: Page): Promise<void> {
  const { violations } = await new AxeBuilder({ page }).analyze()
  expect(violations.map(found => `${found.id}: ${found.nodes.map(node => node.html).join(' | ')}`)).toEqual([])
}
